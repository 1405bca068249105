#pragma once

#include <ostream>

/// Writes the page of all keywords, in Markdown.
void WriteKeywordsPage(std::ostream& out);

/// Writes all keywords as a dictionary for libFuzzer.
void WriteDictionary(std::ostream& out);
