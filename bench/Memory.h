#pragma once

/// Memory of this process, in bytes, 0 if the system does not say; and its time.
namespace bench {

/// Sets the peak to what is in use now, and returns that. Memory that was freed before is given back first,
/// and the program's own code counts as in use, whether it has run or not.
double ResetPeak();
/// The most that was in use since `ResetPeak`.
double Peak();

/// Lets the allocator keep what is freed. Otherwise some readers, by chance, would have to fetch the memory
/// of their last run again.
void KeepMemory();

/// Time that this process has computed, in seconds. What else runs on the machine is not in it.
double ProcessorTime();

}  // namespace bench
