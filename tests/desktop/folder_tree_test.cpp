#include "desktop/folder_tree.h"

#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class FolderTreeTest : public testing::Test {
 protected:
  FolderTreeTest() {
    for (auto name : {"alpha", "alpha/deep", "caf\xE9", ".hidden"}) home.MakeFolder(name);
    home.Write("file.txt");
    home.MakeLink("link", "alpha");
    tree.folderSelected = [this](const std::string& path) { selected.push_back(path); };
    tree.resize(300, 300);
    tree.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&tree));
  }
  QModelIndex Root() { return tree.model()->index(0, 0); }
  static std::string Name(const QModelIndex& index) {
    return index.data().toString().toStdString();
  }
  std::vector<std::string> Shown(const QModelIndex& parent) {
    std::vector<std::string> names;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
      names.push_back(Name(tree.model()->index(row, 0, parent)));
    }
    return names;
  }

  TemporaryFolder home;
  SystemFiles files;
  FolderTree tree{files, home.Path(), "My Computer", nullptr};
  std::vector<std::string> selected;
};

TEST_F(FolderTreeTest, ListsFoldersOneLevelAtATimeAndAClickSelectsThemWithAnyBytes) {
  EXPECT_EQ(Shown({}), (std::vector<std::string>{"Home", "My Computer"}));
  EXPECT_EQ(Shown(Root()), std::vector<std::string>());
  tree.expand(Root());
  EXPECT_EQ(Shown(Root()), (std::vector<std::string>{"alpha", "caf\uFFFD", "link"}));
  const QRect place = tree.visualRect(tree.model()->index(1, 0, Root()));
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place.center());
  QTest::qWait(10);
  EXPECT_EQ(selected, std::vector{home.Path("caf\xE9")});
}

TEST_F(FolderTreeTest, ShowsTheFolderItIsToldWithoutSelectingItAgain) {
  // clang-format off
  const std::pair<std::string, const char*> rows[] = {
      {home.Path("alpha/deep"), "deep"}, {home.Path("alpha/deep/"), "deep"},
      {home.Path("caf\xE9"), "caf\uFFFD"}, {home.Path(".hidden"), ".hidden"},
      {home.Path("link/deep"), "deep"}, {home.Path(), "Home"}, {"/", "My Computer"}, {"/usr", "usr"}};
  // clang-format on
  for (const auto& [path, shown] : rows) {
    tree.ShowFolder(path);
    EXPECT_EQ(Name(tree.currentIndex()), shown) << path;
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.currentIndex()));
  }
  // It stays in the root that the user is in, which "/usr" made the computer.
  tree.ShowFolder(home.Path("alpha"));
  QModelIndex root = tree.currentIndex();
  while (root.parent().isValid()) root = root.parent();
  EXPECT_EQ(Name(root), "My Computer");
  tree.ShowFolder(home.Path("nowhere"));
  EXPECT_FALSE(tree.currentIndex().isValid());
  QTest::qWait(10);
  EXPECT_EQ(selected, std::vector<std::string>());
}

TEST_F(FolderTreeTest, F5FindsNewFoldersAndKeepsWhatIsOpen) {
  tree.ShowFolder(home.Path("alpha/deep"));
  home.MakeFolder("beta");
  QTest::keyClick(&tree, Qt::Key_F5);
  EXPECT_EQ(Shown(Root())[1], "beta");
  EXPECT_EQ(Name(tree.currentIndex()), "deep");
  EXPECT_TRUE(tree.isExpanded(tree.currentIndex().parent()));
  QTest::qWait(10);
  EXPECT_EQ(selected, std::vector<std::string>());
}

}  // namespace tallowbrook
