#include "tests/faults/scenarios.h"

#include "tests/support/mp3_bytes.h"

namespace tallowbrook {

namespace {

using Begin = std::function<void()>;

constexpr std::size_t takenRow = 3, olderRow = 5;

std::string NameOf(std::string_view word, std::size_t row) {
  return std::string(word) + std::to_string(1000 + row) + ".txt";
}

void Set(Form1& form, std::initializer_list<std::pair<const char*, std::string>> values) {
  for (const auto& [name, value] : values) {
    ASSERT_TRUE(form.screen.Find(name)->SetValueText(value)) << name;
  }
}

// The first `count` of the rows that still have their old names get new ones.
void RunOver(Form1& form, const Begin& begin, std::size_t count = std::string::npos) {
  Set(form, {{"TabIndex", "2"}, {"Combo_Find", "old"}, {"Combo_Replace", "new"}});
  form.scan.RefillList();
  for (std::size_t row = 1; row <= form.ListView1.Count(); ++row) {
    FileEntry& entry = form.ListView1.Row(row);
    entry.Checked = entry.name.starts_with("old") && count > 0;
    if (entry.Checked) --count;
  }
  begin();
  form.run.RenameFiles(0, {});
}

void Rename(Stage&, Form1& form, const Begin& begin) {
  RunOver(form, begin);
}

void Move(Stage& stage, Form1& form, const Begin& begin) {
  const std::string target = stage.target.Path();
  Set(form, {{"Check_MoveEnable", "1"}, {"Txt_MoveTo", target}, {"Option_Move", "True"}});
  RunOver(form, begin);
}

void ShowHistory(Stage& stage, Form1& form, const std::function<void(LogHistory&)>& use) {
  form.showHistory = [&](LogHistory& history) {
    history.Open();
    use(history);
    stage.said = history.statusBar.Pane(0);
  };
  form.OpenHistoryWindow();
}

void Undo(Stage& stage, Form1& form, const Begin& begin) {
  begin();
  ShowHistory(stage, form, [](LogHistory& history) { history.Cmd_Undo.Press(); });
}

void DeleteFirstOfTwoBatches(Stage& stage, Form1& form, const Begin& begin) {
  begin();
  ShowHistory(stage, form, [](LogHistory& history) {
    if (history.CountBatches() != 2) return;
    history.SelectBatches({1}, 1);
    history.DeleteKey();
  });
}

void SaveProfile(Stage&, Form1& form, const Begin& begin) {
  std::int32_t id = 3;
  form.profiles.LoadProfile(id);
  Set(form, {{"Text_Prefix", "changed"}});
  begin();
  form.SaveCurrentProfile();
}

void SaveSettings(Stage&, Form1& form, const Begin& begin) {
  form.WindowHeight = 7777;
  begin();
  form.SaveSettings();
}

// One without a tag, one whose tag must grow, and one that has room.
void PrepareSongs(Stage& stage) {
  const auto tag = [](std::uint32_t size) {
    return Filled(TagBytes(3, size, TextFrame("TIT2", "Soft")), size, '\0');
  };
  for (const auto& [name, v2] :
       {std::pair("a", std::string()), {"b", tag(100)}, {"c", tag(2048)}}) {
    stage.home.Write(name + std::string(".mp3"),
                     v2 + name + sound + "TAG" + Filled("Soft", 124, '\0') + '\xFF');
  }
}

// Fills all boxes: what is saved then doesn't depend on what could be read.
void UpdateTags(Stage&, Form1& form, const Begin& begin) {
  form.showTagEditor = [&](TagEditor& editor) {
    begin();
    for (int song = 0; song < 3; ++song) {
      for (Control* box : editor.screen.Controls()) {
        if (box->Name().starts_with("Txt_v")) box->SetValueText(savedTag);
      }
      editor.Cmd_Save.Press();
      editor.Cmd_Next.Press();
    }
  };
  form.scan.RefillList();
  form.ListView1.SetSelected(1, true);
  form.ListView1.SelectItem(1);
  form.ShowTagEditor();
}

}  // namespace

Texts Visible(const TemporaryFolder& folder, bool songs) {
  Texts texts;
  for (const std::string& name : folder.Names()) {
    if (!IsHiddenName(name) && name.ends_with(".mp3") == songs) texts[name] = folder.Read(name);
  }
  return texts;
}

// The first file of ten is larger, so that copying it takes its time.
Stage::Stage(int rows, const std::string& targetIn) : target(targetIn) {
  const auto write = [&](const TemporaryFolder& folder, std::string_view word, std::size_t row) {
    const std::string name = NameOf(word, row);
    const std::string bytes =
        Filled(name + (&folder == &target ? " older" : ""), row % 10 == 1 ? 40'000 : 3000, 'b');
    places[bytes].push_back(folder.Write(name, bytes));
    return bytes;
  };
  for (std::size_t row = 1; row <= static_cast<std::size_t>(rows); ++row) {
    std::vector<std::string>& mayStand = places[write(home, "old", row)];
    if (row == takenRow) continue;
    for (const TemporaryFolder* folder : {&home, &target}) {
      mayStand.push_back(folder->Path(NameOf("new", row)));
    }
  }
  write(home, "new", takenRow);
  replaceable = write(target, "new", olderRow);
}

Answer Stage::Ask(const MessageBox& box) {
  said = box.text;
  return box.title == "Error loading undo file" ? Answer::No : Answer::Yes;
}

std::unique_ptr<Form1> Stage::Start() {
  auto form = std::make_unique<Form1>(With(events, &faulty, this));
  form->Load();
  return form;
}

Texts Stage::OwnFiles() const {
  Texts texts = Visible(data, false);
  for (auto& [name, text] : texts) {
    for (const TemporaryFolder* folder : {&home, &target, &data}) {
      for (std::size_t at; (at = text.find(folder->Path())) != std::string::npos;) {
        text.replace(at, folder->Path().size(), "~/");
      }
    }
  }
  return texts;
}

std::set<std::string> Stage::Hidden() const {
  std::set<std::string> hidden;
  for (const TemporaryFolder* folder : {&home, &target, &data, &temporary}) {
    for (const std::string& name : folder->Names()) {
      if (IsHiddenName(name)) hidden.insert(name);
    }
  }
  return hidden;
}

const std::vector<Scenario>& Scenarios() {
  const auto nothing = [](Stage&) {};
  const auto run = [](Stage& stage) { Move(stage, *stage.Start(), [] {}); };
  const auto twoRuns = [](Stage& stage) {
    const auto form = stage.Start();
    RunOver(
        *form, [] {}, 2);
    RunOver(*form, [] {});
  };
  const auto profile = [](Stage& stage) { stage.Start()->profiles.SaveProfile(3, "Three"); };
  // clang-format off
  static const std::vector<Scenario> scenarios = {
      {.name = "Run", .prepare = nothing, .act = Rename, .runs = true},
      {.name = "RunWithMove", .prepare = nothing, .act = Move, .runs = true},
      {.name = "Undo", .prepare = run, .act = Undo, .undoes = true, .saysWhenFull = logNotWritten},
      {.name = "LogRewrite", .prepare = twoRuns, .act = DeleteFirstOfTwoBatches, .saysWhenFull = logNotWritten},
      {.name = "ProfileSave", .prepare = profile, .act = SaveProfile,
       .saysWhenFull = "The profile could not be saved"},
      {.name = "ConfigurationSave", .prepare = profile, .act = SaveSettings},
      {.name = "TagUpdate", .prepare = PrepareSongs, .act = UpdateTags},
  };
  // clang-format on
  return scenarios;
}

}  // namespace tallowbrook
