#include "tests/faults/disk_state.h"

#include <algorithm>
#include <filesystem>

#include "store/batch_rows.h"
#include "store/log_format.h"

namespace tallowbrook {

namespace {

// By contents: where they are.
using Found = std::map<std::string, std::set<std::string>>;

Found FindAll(const Stage& stage) {
  Found found;
  for (const TemporaryFolder* folder : {&stage.home, &stage.target}) {
    for (const auto& [name, bytes] : Visible(*folder, false)) {
      found[bytes].insert(folder->Path(name));
    }
  }
  return found;
}

// A move copies and then deletes: the file whose turn it was may stand in both places.
void CheckFiles(const Stage& stage, const Found& found) {
  int doubled = 0;
  for (const auto& [bytes, paths] : found) {
    ASSERT_TRUE(stage.places.contains(bytes)) << *paths.begin() << " is torn";
    for (const std::string& path : paths) {
      EXPECT_TRUE(std::ranges::count(stage.places.at(bytes), path))
          << path << " is another's place";
    }
    if (paths.size() > 1) ++doubled;
  }
  EXPECT_LE(doubled, 1);
  for (const auto& [bytes, paths] : stage.places) {
    EXPECT_TRUE(found.contains(bytes) || bytes == stage.replaceable) << paths.front() << " is lost";
  }
}

// Where the log and the disk don't agree.
struct Verdict {
  int torn = 0;        // lines
  int wrong = 0;       // records whose file isn't where they say
  int stale = 0;       // successes whose file is back in its old place
  int unrecorded = 0;  // files that have moved without a record
  bool isEmpty = true;
};

void JudgeBatch(std::string_view batch, const Stage& stage, const Found& found, Found& unrecorded,
                Verdict& verdict) {
  log_format::ForEachInnerLine(batch, [&](std::string_view line) {
    const bool isRecord = !line.empty() && line[0] != '@';
    if (isRecord && !log_format::ParseRecord(line)) ++verdict.torn;
  });
  BatchRows rows;
  rows.Load(batch);
  for (std::size_t row = 1; row <= rows.Count(); ++row) {
    if (rows.ColourOf(row) == ResultColour::Error) continue;
    const std::string oldPath = rows.OldPath(row);
    const auto file = std::ranges::find_if(
        stage.places, [&](const auto& place) { return place.second.front() == oldPath; });
    ASSERT_NE(file, stage.places.end()) << oldPath;
    const std::set<std::string>& at = found.at(file->first);
    const bool isUndone = rows.ColourOf(row) == ResultColour::Undone;
    if (!at.contains(isUndone ? oldPath : rows.NewPath(row))) {
      ++(at.contains(oldPath) ? verdict.stale : verdict.wrong);
    }
    unrecorded.erase(file->first);
    verdict.isEmpty = false;
  }
}

Verdict Judge(const Stage& stage, const Found& found) {
  std::string log = stage.data.Exists("Logfile.txt") ? stage.data.Read("Logfile.txt") : "";
  for (const std::string_view batch : log_format::SplitBatches(log)) {
    EXPECT_TRUE(log_format::Summarize(batch)) << batch;
  }
  // A batch that lacks its end gets it here, to be read.
  const std::size_t whole = log.rfind(log_format::batchEnd) + 1;
  if (log.size() > whole + log_format::lineBreak.size()) log += log_format::batchEnd;
  Found unrecorded = found;
  std::erase_if(unrecorded, [&](const auto& file) {
    return file.second.contains(stage.places.at(file.first).front());
  });
  Verdict verdict;
  for (const std::string_view batch : log_format::SplitBatches(log)) {
    JudgeBatch(batch, stage, found, unrecorded, verdict);
  }
  verdict.unrecorded = static_cast<int>(unrecorded.size());
  return verdict;
}

// A record follows its rename at once, so that one file may lack it; all of them do where the log
// couldn't be opened, since the run goes on without it. An undo writes the new statuses together
// at its end: until then, and where that write failed, which it says, files that are back in their
// old places stand in the log as they were renamed.
void CheckLog(const Stage& stage, const Found& found, const Scenario& scenario, Harm harm) {
  const Verdict verdict = Judge(stage, found);
  const bool isFull = harm == Harm::FullDisk;
  const bool isUnlogged = harm == Harm::OneCall && verdict.isEmpty;
  const bool mayLack = isFull || isUnlogged || !(scenario.runs || scenario.undoes);
  const bool mayBeStale = scenario.undoes && (harm == Harm::Killed || stage.said == logNotWritten);
  EXPECT_TRUE(isFull || verdict.torn <= (harm == Harm::Killed ? 1 : 0)) << verdict.torn;
  EXPECT_TRUE(mayLack || verdict.unrecorded <= 1) << verdict.unrecorded;
  EXPECT_TRUE(mayBeStale || verdict.stale == 0) << verdict.stale;
  EXPECT_EQ(verdict.wrong, 0);
}

void CheckOwnFiles(const Stage& stage, const Scenario& scenario, Reference reference) {
  for (const auto& [name, text] : stage.OwnFiles()) {
    if (name == "Logfile.txt" && (scenario.runs || scenario.undoes)) continue;
    EXPECT_TRUE(text == reference.ownBefore[name] || text == reference.ownAfter[name])
        << name << " is torn:\n"
        << text;
  }
}

// Old, new, or where it may be cut, new up to some place: one write that was ended half way.
bool IsOldOrNew(std::string_view text, std::string_view oldText, std::string_view newText,
                bool mayBeCut) {
  if (text == oldText || text == newText) return true;
  if (!mayBeCut || text.size() != oldText.size()) return false;
  const auto differing = std::ranges::mismatch(text, newText).in1;
  const auto at = static_cast<std::size_t>(differing - text.begin());
  return text.substr(at) == oldText.substr(at);
}

// Both tags are written one behind the other. A song whose tag must grow has room at its front for
// a moment, with the old tag behind it.
bool IsSong(std::string_view text, const std::string& before, const std::string& after,
            bool mayBeCut) {
  constexpr std::size_t v1Width = 128;
  const auto body = [](std::string_view song) { return song.substr(0, song.size() - v1Width); };
  const auto tail = [](std::string_view song) { return song.substr(song.size() - v1Width); };
  if (text.size() < v1Width) return false;
  const std::string padded = std::string(after.size() - before.size(), '\0').append(body(before));
  return IsOldOrNew(tail(text), tail(before), tail(after), mayBeCut) &&
         (body(text) == body(before) || IsOldOrNew(body(text), padded, body(after), mayBeCut));
}

// A song that grows is deleted before its copy takes the place, in that order: what fails or ends
// the program there leaves the copy, whole, hidden, and the only one. Nothing else hidden stays
// behind a call that failed.
void CheckSongsAndHidden(const Stage& stage, const Reference& reference, Harm harm) {
  const std::set<std::string> hidden = stage.Hidden();
  EXPECT_LE(hidden.size(), 1U);
  const bool isTemporary = !hidden.empty() && stage.temporary.Exists(*hidden.begin());
  const std::string left = isTemporary ? stage.temporary.Read(*hidden.begin()) : "";
  bool mayBeLeft = hidden.empty() || harm == Harm::Killed;
  for (const auto& [name, before] : reference.songsBefore) {
    const std::string& after = reference.songsAfter.at(name);
    const bool isCopy = IsSong(left, before, after, false);
    const bool isThere = stage.home.Exists(name);
    const bool isSong =
        isThere && IsSong(stage.home.Read(name), before, after, harm != Harm::OneCall);
    EXPECT_TRUE(isThere ? isSong : isCopy) << name;
    mayBeLeft |= isCopy;
  }
  EXPECT_TRUE(mayBeLeft) << *hidden.begin();
}

}  // namespace

Reference::Reference(const Scenario& scenario, int rows) {
  Stage stage(rows, std::filesystem::temp_directory_path());
  scenario.prepare(stage);
  ownBefore = stage.OwnFiles();
  songsBefore = stage.Songs();
  scenario.act(stage, *stage.Start(), [] {});
  ownAfter = stage.OwnFiles();
  songsAfter = stage.Songs();
}

void CheckStage(const Stage& stage, const Scenario& scenario, const Reference& reference,
                Harm harm) {
  const Found found = FindAll(stage);
  CheckFiles(stage, found);
  if (testing::Test::HasFatalFailure()) return;
  CheckLog(stage, found, scenario, harm);
  CheckOwnFiles(stage, scenario, reference);
  CheckSongsAndHidden(stage, reference, harm);
}

void CheckGoesOn(Stage& stage, Form1& form, const Scenario& scenario, const Reference& reference) {
  const Texts songs = stage.Songs();
  scenario.act(stage, form, [] {});
  const Found found = FindAll(stage);
  CheckFiles(stage, found);
  if (testing::Test::HasFatalFailure()) return;
  for (const auto& [bytes, paths] : found) {
    const auto& mayStand = stage.places.at(bytes);
    const bool isBack = paths.contains(mayStand.front());
    EXPECT_FALSE(scenario.runs && isBack && mayStand.size() > 1) << mayStand.front();
    EXPECT_FALSE(scenario.undoes && !isBack) << mayStand.front();
  }
  EXPECT_EQ(Judge(stage, found).wrong, 0);
  const bool writesOwnFiles = !scenario.runs && !scenario.undoes;
  EXPECT_TRUE(!writesOwnFiles || stage.OwnFiles() == reference.ownAfter);
  for (const auto& [name, before] : songs) {
    cMP3ID3v2 tag(stage.files);
    tag.SetMP3File(stage.home.Path(name));
    EXPECT_EQ(tag.Title(), savedTag) << name;
    EXPECT_NE(stage.home.Read(name).find(sound), std::string::npos) << name;
  }
}

}  // namespace tallowbrook
