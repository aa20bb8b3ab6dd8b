// Text of one byte a character, as tags hold it: code page Windows-1252.
//
// The five bytes that the page leaves undefined stand for the control characters of the same
// numbers (WHATWG Encoding, windows-1252), so that every byte becomes a character and comes back
// as itself.
#pragma once

#include <string>
#include <string_view>

namespace tallowbrook {

std::string FromCodePage(std::string_view bytes);
// A character that the page doesn't hold, or a byte that is no text, becomes "?": the result has
// as many bytes as the text has characters.
std::string ToCodePage(std::string_view text);

}  // namespace tallowbrook
