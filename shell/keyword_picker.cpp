#include "shell/keyword_picker.h"

#include <algorithm>

#include "base/text.h"
#include "engine/mask_highlighting.h"

namespace tallowbrook {

KeywordPicker::KeywordPicker(RenameSettings& settings, std::size_t& keywordCaret)
    : settings_(settings), keywordCaret_(keywordCaret) {
  Cmd_Insert.rule = [this] { Insert(); };
  Cmd_Cancel.rule = [this] {
    if (close) close();
  };
  FollowCaret(settings.RTxt_ID3Name);
  FollowCaret(settings.RTxt_Unique_Other);
}

// The place that the user goes to in the mask is the one where the next keyword goes.
void KeywordPicker::FollowCaret(MaskText& mask) {
  mask.caretMoved = [this, &mask] {
    if (KeywordTarget && &mask == &Mask()) keywordCaret_ = mask.SelStart();
  };
}

void KeywordPicker::Open(int target) {
  KeywordTarget = target;
  keywordCaret_ = Mask().SelStart();
  std::vector<std::string> keywords;
  for (const Keyword& row : Table()) keywords.emplace_back(row.keyword);
  (ForTags() ? List1 : ListView1).SetItems(std::move(keywords));
  for (Control* control : std::initializer_list<Control*>{&Label1, &Label2, &List1}) {
    control->SetVisible(ForTags());
  }
  ListView1.SetVisible(!ForTags());
}

void KeywordPicker::Insert() {
  const List& list = ForTags() ? List1 : ListView1;
  if (!KeywordTarget || list.Index() < 0) return;
  const std::string& keyword = list.ItemText();
  MaskText& mask = Mask();
  const std::string& text = mask.Value();
  const std::size_t caret = std::min(keywordCaret_, CountCharacters(text));
  const std::string_view left = *LeftCharacters(text, static_cast<std::ptrdiff_t>(caret));
  std::string joined(left);
  joined.append(keyword).append(text, left.size());
  mask.Type(joined, caret + CountCharacters(keyword));
  keywordCaret_ = mask.SelStart();
  SyntaxHighlighting(mask, Table(), keywordCaret_);
}

}  // namespace tallowbrook
