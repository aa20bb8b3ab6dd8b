#include "engine/rename_pages.h"

#include <initializer_list>

#include "base/letter_case.h"
#include "engine/mask_highlighting.h"

namespace tallowbrook {

RenamePages::RenamePages(Screen& screen, RenameSettings& settings, ListPane& pane, Preview& preview,
                         Dialogs& dialogs, Clock& clock)
    : Frame1(screen, {.name = "Frame1"}),
      Frame_Prefix(screen, {.name = "Frame_Prefix", .caption = "Prefix"}),
      Frame_Filename(screen, {.name = "Frame_Filename", .caption = "Filename"}),
      Frame_Separator(screen, {.name = "Frame_Separator", .caption = "Separator"}),
      Frame_Unique(screen, {.name = "Frame_Unique", .caption = "Unique Parameter"}),
      Frame_Suffix(screen, {.name = "Frame_Suffix", .caption = "Suffix"}),
      Frame_Extension(screen, {.name = "Frame_Extension", .caption = "Extension"}),
      Label3(screen, {.name = "Label3", .caption = "Sample File Name:"}),
      Label_SampleFileName(screen, {.name = "Label_SampleFileName"}),
      Frame_UpdateType(screen, {.name = "Frame_UpdateType", .caption = "Update Type"}),
      Frame_Advanced(screen, {.name = "Frame_Advanced", .caption = "New File Name"}, false),
      Frame_AdvancedDate(screen, {.name = "Frame_AdvancedDate", .caption = "New File Date"}, false),
      Label_AdvancedExample(screen,
                            {.name = "Label_AdvancedExample",
                             .caption = "Example: <filename> - <m>-<d>-<yy> - <folder>.<ext>"}),
      Frame_ID3(screen, {.name = "Frame_ID3", .caption = "New File Name"}),
      Label_ID3Example(
          screen, {.name = "Label_ID3Example", .caption = "Example: <v1artist> - <v1title>.mp3"}),
      Frame_CopyMove(screen, {.name = "Frame_CopyMove", .caption = "Copy / Move"}),
      Lbl_MoveTo(screen, {.name = "Lbl_MoveTo", .caption = "Copy To:"}),
      BrowseMoveTo(screen, {.name = "Cmd_BrowseMoveTo", .caption = "Browse"},
                   {.name = "PushButton_Browse", .caption = "Browse"}),
      ClearComboBox(screen,
                    {.name = "Cmd_ClearComboBox",
                     .caption = "Clear History",
                     .tip = "Clear Search/Replace history"},
                    {.name = "PushButton_ClearComboBox",
                     .caption = "Clear History",
                     .tip = "Clear Search/Replace history"}),
      ClearComboBoxName(screen,
                        {.name = "Cmd_ClearComboBoxName",
                         .caption = "Clear History",
                         .tip = "Clear filename history"},
                        {.name = "PushButton_ClearComboBoxName",
                         .caption = "Clear History",
                         .tip = "Clear filename history"}),
      InsertKeyword(screen, {.name = "Cmd_InsertKeyword", .caption = "Insert Keyword"},
                    {.name = "PushButton_InsertKeyword",
                     .caption = "Insert Keyword",
                     .tip = "Pick a keyword from a list"}),
      InsertKeyword1(screen, {.name = "Cmd_InsertKeyword1", .caption = "Insert Keyword"},
                     {.name = "PushButton_InsertKeyword1",
                      .caption = "Insert Keyword",
                      .tip = "Pick a keyword from a list"}),
      EditID3(screen, {.name = "Cmd_EditID3", .caption = "Edit ID3 Tag"},
              {.name = "PushButton_EditID3",
               .caption = "Edit ID3 Tag",
               .tip = "Show and change the tags of the highlighted file"}),
      unique(screen, settings, dialogs, clock, [this] { RefreshSampleFileName(); }),
      screen_(screen),
      settings_(settings),
      pane_(pane),
      preview_(preview),
      clock_(clock) {
  WirePanelRules();
  WireOptions();
  WireSampleRefresh();
  WireMasks();
  ClearComboBox.Does([this] { ClearFindReplaceHistory(); });
  ClearComboBoxName.Does([this] { ClearFilenameHistory(); });
}

void RenamePages::Governs(Tick& box, Control& field) {
  box.rule = [this, &box, &field] {
    field.SetEnabled(box.On());
    RefreshSampleFileName();
  };
}

void RenamePages::WirePanelRules() {
  RenameSettings& s = settings_;
  Governs(s.Check_Prefix, s.Text_Prefix);
  Governs(s.Check_Suffix, s.Text_Suffix);
  Governs(s.Check_Seperator, s.Text_Seperator);
  Governs(s.Check_Original, s.Combo_Original);
  Governs(s.Check_Extension, s.Combo_Extension);
  s.Combo_Original.rule = [this] {
    ShowForm(settings_.Combo_Original, settings_.Combo_OriginalName, SampleBaseName);
  };
  s.Combo_Extension.rule = [this] {
    ShowForm(settings_.Combo_Extension, settings_.Text_Extension, SampleExtension);
  };
  s.Check_UseCurrentDateTime.rule = [this] {
    RenameSettings& r = settings_;
    for (Control* field :
         std::initializer_list<Control*>{&r.DTPicker_AdvancedDate, &r.Combo_AdvancedDate3,
                                         &r.Combo_AdvancedDate4, &r.Combo_AdvancedDate5}) {
      field->SetEnabled(!r.Check_UseCurrentDateTime.On());
    }
  };
}

void RenamePages::WireOptions() {
  RenameSettings& s = settings_;
  s.TabIndex.rule = [this] { ShowTabPage(settings_.TabIndex.Index()); };
  s.Check_MoveEnable.rule = [this] { UpdateMoveControls(); };
  s.Option_Copy.rule = [this] {
    settings_.TransferMethod.Set(0);
    Lbl_MoveTo.SetCaption("Copy To:");
  };
  s.Option_Move.rule = [this] {
    settings_.TransferMethod.Set(1);
    Lbl_MoveTo.SetCaption("Move To:");
  };
  s.Option_ChangeFileName.rule = [this] { ChooseAdvancedType(false); };
  s.Option_ChangeFileDate.rule = [this] { ChooseAdvancedType(true); };
}

// What is left out here refreshes elsewhere or, like the typed filename, the direction and the
// increment, not at all: the sample then follows with the next change of another field.
void RenamePages::WireSampleRefresh() {
  RenameSettings& s = settings_;
  for (Control* field : std::initializer_list<Control*>{
           &s.Text_Prefix, &s.Check_UniqueFirst, &s.Text_Seperator, &s.Text_UniqueMask,
           &s.Combo_UniqueDate0, &s.Combo_UniqueDate1, &s.Combo_UniqueDate2, &s.Text_UniqueDate1,
           &s.Text_UniqueDate2, &s.Text_Suffix, &s.Text_Extension}) {
    field->rule = [this] { RefreshSampleFileName(); };
  }
}

// The rules colour a text that came from elsewhere than a key; the caret isn't theirs to note.
void RenamePages::WireMasks() {
  MaskText& tags = settings_.RTxt_ID3Name;
  MaskText& other = settings_.RTxt_Unique_Other;
  tags.rule = [&tags] { tags.SetKeywords(FindKeywords(tags.Value(), TagKeywords())); };
  other.rule = [this, &other] {
    other.SetKeywords(FindKeywords(other.Value(), AdvancedKeywords()));
    RefreshSampleFileName();
  };
  tags.keyReleased = [this](bool isEnter) { TagMaskKeyReleased(isEnter); };
  other.keyReleased = [this](bool) { MaskKeyReleased(); };
}

void RenamePages::ShowForm(const List& form, Text& field, std::string_view sample) {
  const bool custom = form.Index() == FormCustom;
  field.SetReadOnly(!custom);
  if (form.Index() == FormUpper) {
    field.Set(ToUpper(sample));
  } else if (form.Index() == FormProper) {
    field.Set(ToProper(sample));
  } else if (!custom) {
    field.Set(sample);
  }
  RefreshSampleFileName();
}

void RenamePages::ResetSettings() {
  pane_.Text_StartCheck.Set("0");
  pane_.Text_Step.Set("1");
  pane_.Combo_Filter.SetItems({"*.*", "*.mp3", "*.htm*", "*.txt"});
  settings_.FillPositions();
  for (Tick* box : {&settings_.Check_Prefix, &settings_.Check_Suffix, &settings_.Check_Seperator,
                    &settings_.Check_Extension, &settings_.Check_Original}) {
    box->rule();
  }
  settings_.FillDefaults(clock_.Now());
  unique.PrepareSpinners();
  RefreshSampleFileName();
}

void RenamePages::RefreshSampleFileName() {
  Label_SampleFileName.SetCaption(preview_.BuildSampleFileName());
}

void RenamePages::UpdateMoveControls() {
  settings_.Txt_MoveTo.SetEnabled(settings_.Check_MoveEnable.On());
}

void RenamePages::ClearFindReplaceHistory() {
  settings_.Combo_Find.ClearItems();
  settings_.Combo_Replace.ClearItems();
}

void RenamePages::ClearFilenameHistory() {
  settings_.Combo_OriginalName.ClearItems();
}

void RenamePages::MaskKeyReleased() {
  SyntaxHighlighting(settings_.RTxt_Unique_Other, AdvancedKeywords(), KeywordCaret);
  RefreshSampleFileName();
}

void RenamePages::TagMaskKeyReleased(bool isEnter) {
  SyntaxHighlighting(settings_.RTxt_ID3Name, TagKeywords(), KeywordCaret);
  if (isEnter) preview_.PreviewFiles();
}

void RenamePages::ShowTabPage(int index) {
  Frame1.SetVisible(index == PageProperties);
  Frame_Advanced.SetVisible(index == PageAdvanced);
  switch (index) {
    case PageProperties:
      // The sample shows what the page in front makes, and is seen on this one alone.
      RefreshSampleFileName();
      break;
    case PageDelete:
      screen_.RequestFocus(settings_.Combo_RemoveChars);
      break;
    case PageReplace:
      screen_.RequestFocus(settings_.Combo_Find);
      break;
    case PageAdvanced:
      ShowAdvancedPanel();
      break;
    case PageTags:
      screen_.RequestFocus(settings_.RTxt_ID3Name);
      break;
    default:
      break;
  }
}

void RenamePages::ShowAdvancedPanel() {
  const bool changeDate = settings_.Option_ChangeFileDate.On();
  Frame_Advanced.SetVisible(!changeDate);
  Frame_AdvancedDate.SetVisible(changeDate);
}

void RenamePages::ChooseAdvancedType(bool changeDate) {
  settings_.AdvancedType.Set(changeDate ? 1 : 0);
  ShowAdvancedPanel();
}

}  // namespace tallowbrook
