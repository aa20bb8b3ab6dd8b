#include "desktop/folder_tree.h"

#include <gtest/gtest.h>

#include <QTest>

#include "tests/support/temporary_folder.h"

namespace tallowbrook {

class FolderTreeTest : public testing::Test {
 protected:
  FolderTreeTest() {
    home.MakeFolder("alpha");
    home.MakeFolder("alpha/deep");
    home.MakeFolder("caf\xE9");
    home.MakeFolder(".hidden");
    home.Write("file.txt");
    home.MakeLink("link", "alpha");
    tree.folderSelected = [this](const std::string& path) { selected.push_back(path); };
    tree.resize(300, 300);
    tree.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&tree));
  }
  QModelIndex Root() { return tree.model()->index(0, 0); }
  QStringList Shown(const QModelIndex& parent) {
    QStringList names;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
      names += tree.model()->index(row, 0, parent).data().toString();
    }
    return names;
  }
  void Click(const QModelIndex& index) {
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center());
    QTest::qWait(10);
  }

  TemporaryFolder home;
  SystemFiles files;
  FolderTree tree{files, home.Path(), "My Computer", nullptr};
  std::vector<std::string> selected;
};

TEST_F(FolderTreeTest, ListsFoldersAndLinksToFoldersOneLevelAtATime) {
  EXPECT_EQ(Shown({}), (QStringList{QStringLiteral("Home"), QStringLiteral("My Computer")}));
  EXPECT_EQ(Shown(Root()), QStringList());
  tree.expand(Root());
  EXPECT_EQ(Shown(Root()), (QStringList{QStringLiteral("alpha"), QStringLiteral("caf\uFFFD"),
                                        QStringLiteral("link")}));
}

TEST_F(FolderTreeTest, AFolderWhoseNameIsNoTextIsSelectedByAClick) {
  tree.expand(Root());
  Click(tree.model()->index(1, 0, Root()));
  EXPECT_EQ(selected, std::vector{home.Path("caf\xE9")});
}

TEST_F(FolderTreeTest, ShowsTheFolderItIsToldWithoutSelectingItAgain) {
  struct {
    std::string path;
    QString shown;
  } rows[] = {
      {home.Path("alpha/deep"), QStringLiteral("deep")},
      {home.Path("alpha/deep/"), QStringLiteral("deep")},
      {home.Path("caf\xE9"), QStringLiteral("caf\uFFFD")},
      {home.Path(".hidden"), QStringLiteral(".hidden")},
      {home.Path("link/deep"), QStringLiteral("deep")},
      {home.Path(), QStringLiteral("Home")},
      {"/", QStringLiteral("My Computer")},
      {"/usr", QStringLiteral("usr")},
  };
  for (const auto& row : rows) {
    tree.ShowFolder(row.path);
    EXPECT_EQ(tree.currentIndex().data().toString(), row.shown) << row.path;
    EXPECT_TRUE(tree.selectionModel()->isSelected(tree.currentIndex()));
  }
  tree.ShowFolder(home.Path("nowhere"));
  EXPECT_FALSE(tree.currentIndex().isValid());
  QTest::qWait(10);
  EXPECT_EQ(selected, std::vector<std::string>());
}

TEST_F(FolderTreeTest, StaysInTheRootThatTheUserIsIn) {
  tree.ShowFolder("/");
  tree.ShowFolder(home.Path("alpha"));
  QModelIndex root = tree.currentIndex();
  while (root.parent().isValid()) root = root.parent();
  EXPECT_EQ(root.data().toString(), QStringLiteral("My Computer"));
}

TEST_F(FolderTreeTest, F5FindsNewFoldersAndKeepsWhatIsOpen) {
  tree.ShowFolder(home.Path("alpha/deep"));
  home.MakeFolder("beta");
  QTest::keyClick(&tree, Qt::Key_F5);
  EXPECT_TRUE(Shown(Root()).contains(QStringLiteral("beta")));
  EXPECT_EQ(tree.currentIndex().data().toString(), QStringLiteral("deep"));
  EXPECT_TRUE(tree.isExpanded(tree.currentIndex().parent()));
  QTest::qWait(10);
  EXPECT_EQ(selected, std::vector<std::string>());
}

}  // namespace tallowbrook
