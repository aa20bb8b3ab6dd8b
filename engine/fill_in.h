// Putting a value in for a keyword of a mask.
#pragma once

#include <string>
#include <string_view>

namespace tallowbrook {

// Replaces each occurrence of the keyword. What is put in can bring keywords along, and a few such
// texts would multiply each other without end: a step that would make the text longer than any
// file name has use for is left out.
void FillIn(std::string& text, std::string_view keyword, std::string_view value, bool ignoreCase);

}  // namespace tallowbrook
