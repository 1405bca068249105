#pragma once

/// Memory of this process, in bytes; 0 where the system does not tell.
namespace bench {

/// Lets the peak begin anew and returns what is in use now. What was freed before does not hide what is taken
/// next, and the program's own code counts as in use, whether it has run or not.
double ResetPeak();
/// The most that was in use since.
double Peak();

/// Lets the allocator keep what is freed, so that no reader has to fetch the memory of its last run again:
/// otherwise it is luck which one has to.
void KeepMemory();

}  // namespace bench
