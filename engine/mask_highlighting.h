// The colours of a mask: which stretches of it are keywords. They are for the eye alone; what a
// mask becomes is decided without them.
#pragma once

#include <span>

#include "base/controls.h"
#include "engine/keywords.h"

namespace tallowbrook {

// Of each keyword the first place where it stands, in whatever case; one that stands twice is
// coloured once. This is wanted. A keyword with a comma is a function: it goes from its name, comma
// included, to the next ">", and isn't coloured without one.
std::vector<ColourSpan> FindKeywords(std::string_view mask, std::span<const Keyword> table);

// After a key: notes in `caret` where the caret of the field stands, and then colours its keywords,
// unless the user holds a selection.
void SyntaxHighlighting(MaskText& field, std::span<const Keyword> table, std::size_t& caret);

}  // namespace tallowbrook
