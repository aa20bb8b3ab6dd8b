#include "desktop/ribbon_bar.h"

#include <QActionGroup>
#include <QApplication>
#include <QMenu>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/text.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/ribbon_widgets.h"
#include "desktop/text.h"
#include "shell/commands.h"
#include "shell/ribbon.h"

namespace tallowbrook {

namespace {

QString NameOf(int number) {
  return QStringLiteral("Command%1").arg(number);
}

std::string_view TipOf(int number) {
  const Command* command = FindCommand(number);
  return command ? command->tip : std::string_view();
}

// Behind either kind of separator: a profile may come from elsewhere.
std::string_view FileNameOf(std::string_view path) {
  return path.substr(path.find_last_of("/\\") + 1);
}

QWidget* FirstForKeyboard(const QWidget& in) {
  const QList<QWidget*> widgets = in.findChildren<QWidget*>();
  const auto found = std::ranges::find_if(widgets, [](const QWidget* widget) {
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isEnabled() && !widget->isHidden();
  });
  return found == widgets.end() ? nullptr : *found;
}

template <typename... Widgets>
QHBoxLayout* RowOf(Widgets*... widgets) {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  (row->addWidget(widgets), ...);
  return row;
}

}  // namespace

RibbonBar::RibbonBar(Form1& form, Binder& binder, QWidget* parent)
    : QFrame(parent), form_(form), binder_(binder), groups_(new QStackedWidget(this)) {
  setObjectName(QStringLiteral("RibbonBar"));
  setAccessibleName(ToText(Layout().name));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(MakeTabRow());
  groups_->setObjectName(QStringLiteral("RibbonGroups"));
  for (const RibbonTab& tab : Layout().tabs) groups_->addWidget(MakeGroups(tab));
  column->addWidget(groups_);

  SelectTab(form_.ribbon.SelectedTab);
  groups_->setCurrentIndex(SelectedTab());
  connect(tabs_, &QTabBar::currentChanged, this, [this](int tab) { TurnTo(tab); });
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F1), this), &QShortcut::activated, this,
          [this] { SetMinimised(!IsMinimised()); });
  connect(qApp, &QApplication::focusChanged, this, [this] { ShowMarks(); });
  form_.profileMenuChanged = [this] { FillProfiles(); };
  FillProfiles();
}

RibbonBar::~RibbonBar() {
  // The keyboard leaves what goes now.
  disconnect(qApp, nullptr, this, nullptr);
  form_.profileMenuChanged = nullptr;
}

QLayout* RibbonBar::MakeTabRow() {
  system_ = MakeSystemButton();
  tabs_ = new RibbonTabs(this);
  for (const RibbonTab& tab : Layout().tabs) tabs_->AddTab(tab.caption);
  tabs_->down = [this] {
    SetMinimised(false);
    if (QWidget* first = FirstForKeyboard(*groups_->currentWidget())) {
      first->setFocus(Qt::TabFocusReason);
    }
  };
  // A click brings the groups back; the second one of a double click doesn't take them again.
  tabs_->clicked = [this] {
    restoredByClick_ = IsMinimised();
    SetMinimised(false);
  };
  tabs_->doubleClicked = [this] {
    if (!restoredByClick_) SetMinimised(true);
  };
  auto* row = RowOf(system_, tabs_);
  row->setContentsMargins(spacing, 3, spacing, 0);
  row->addStretch();
  row->addWidget(MakeStylesButton());
  row->addWidget(right_ = MakeRightButton());
  row->setAlignment(tabs_, Qt::AlignBottom);
  return row;
}

RibbonButton* RibbonBar::MakeSystemButton() {
  const RibbonLayout& layout = Layout();
  auto* button = new RibbonButton(layout.systemButton, this);
  button->setObjectName(QStringLiteral("SystemButton"));
  // The one letter that the whole window knows: no other control has it.
  button->setText(ToText(layout.systemButton));
  button->setIcon(CommandIcon(layout.systemIcon));
  button->setPopupMode(QToolButton::InstantPopup);
  systemMenu_ = new QMenu(button);
  systemMenu_->setToolTipsVisible(true);
  for (const RibbonItem& item : layout.systemMenu) AddAction(*systemMenu_, item);
  systemMenu_->addSection(ToText(layout.profilesCaption));
  behindProfiles_ = systemMenu_->addSeparator();
  AddAction(*systemMenu_, layout.systemBottom);
  button->setMenu(systemMenu_);
  return button;
}

RibbonButton* RibbonBar::MakeStylesButton() {
  auto* button = new RibbonButton(Layout().stylesCaption, this);
  button->setObjectName(QStringLiteral("StylesButton"));
  button->setPopupMode(QToolButton::InstantPopup);
  button->setToolTip(CommandToolTip(button->text(), "The colours of the window"));
  auto* menu = new QMenu(button);
  auto* choices = new QActionGroup(menu);
  for (const StyleChoice& style : Styles()) {
    QAction* action = AddAction(*menu, {RibbonItemKind::Button, style.number, style.caption});
    action->setCheckable(true);
    choices->addAction(action);
    connect(menu, &QMenu::aboutToShow, action, [this, action, file = style.file] {
      action->setChecked(FileNameOf(form_.CurrentStyle) == file);
    });
  }
  choices->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
  button->setMenu(menu);
  return button;
}

RibbonButton* RibbonBar::MakeRightButton() {
  const RibbonItem& item = Layout().right;
  auto* button = new RibbonButton(item.caption, this);
  button->setObjectName(NameOf(item.number));
  button->setToolTip(CommandToolTip(button->text(), TipOf(item.number)));
  connect(button, &QToolButton::clicked, this, [this, number = item.number] { Run(number); });
  return button;
}

QWidget* RibbonBar::MakeGroups(const RibbonTab& tab) {
  auto* page = new QWidget(groups_);
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(spacing, 3, spacing, 4);
  row->setSpacing(spacing);
  for (const RibbonGroup& group : tab.groups) row->addWidget(MakeGroup(group));
  row->addStretch();
  return page;
}

QWidget* RibbonBar::MakeGroup(const RibbonGroup& group) {
  auto* box = new QFrame(groups_);
  box->setObjectName(QStringLiteral("RibbonGroup"));
  auto* column = new QVBoxLayout(box);
  column->setContentsMargins(3, 2, 3, 1);
  column->setSpacing(0);
  QHBoxLayout* items = RowOf();
  for (const RibbonItem& item : group.items) items->addWidget(MakeItem(item, box));
  column->addLayout(items, 1);
  captions_.push_back(new GroupCaption(group.caption, box));
  column->addWidget(captions_.back());
  return box;
}

QWidget* RibbonBar::MakeItem(const RibbonItem& item, QWidget* parent) {
  switch (item.kind) {
    case RibbonItemKind::ProfileList:
      return MakeProfileList(item, parent);
    case RibbonItemKind::Label:
      return MakeCurrentProfile(parent);
    case RibbonItemKind::Button:
      break;
  }
  return MakeCommandButton(item, parent);
}

QWidget* RibbonBar::MakeCommandButton(const RibbonItem& item, QWidget* parent) {
  auto* button = new RibbonButton(item.caption, parent);
  button->setObjectName(NameOf(item.number));
  button->ShowLarge(CommandIcon(item.number));
  button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
  button->setToolTip(CommandToolTip(PlainCaption(item.caption), TipOf(item.number)));
  button->up = [this] { tabs_->setFocus(Qt::BacktabFocusReason); };
  connect(button, &QToolButton::clicked, this, [this, number = item.number] { Run(number); });
  FollowCommand(item.number, button);
  return button;
}

template <typename Shown>
void RibbonBar::FollowCommand(int number, Shown* shown) {
  if (number != commandSaveProfile) return;
  const Button& item = form_.menus.Item("mnu_SaveProfile");
  const auto show = [shown, &item] { shown->setEnabled(item.Enabled()); };
  binder_.Watch(item, show);
  show();
}

QWidget* RibbonBar::MakeProfileList(const RibbonItem& item, QWidget* parent) {
  auto* place = new QWidget(parent);
  auto* column = new QVBoxLayout(place);
  column->setContentsMargins(spacing, 0, spacing, 0);
  column->setSpacing(3);
  auto* caption = new QLabel(PlainCaption(item.caption), place);
  auto* list = new ActingCombo(
      form_.ribbon.LoadProfile, [this, number = item.number] { Run(number); }, place);
  list->setAccessibleName(caption->text());
  list->setToolTip(CommandToolTip(caption->text(), TipOf(item.number)));
  list->up = [this] { tabs_->setFocus(Qt::BacktabFocusReason); };
  binder_.Watch(form_.ribbon.LoadProfile, [list] { list->Refresh(); });
  column->addStretch();
  column->addWidget(caption);
  column->addWidget(list);
  column->addStretch();
  return place;
}

QWidget* RibbonBar::MakeCurrentProfile(QWidget* parent) {
  auto* label = new ElidedLabel(parent);
  const Label& shown = form_.ribbon.CurrentProfile;
  label->setObjectName(ToText(shown.Name()));
  label->setMinimumWidth(label->fontMetrics().averageCharWidth() * 44);
  label->setContentsMargins(spacing, 0, spacing, 0);
  const auto show = [label, &shown] { label->ShowText(shown.Caption()); };
  binder_.Watch(shown, show);
  show();
  return label;
}

QAction* RibbonBar::AddAction(QMenu& menu, const RibbonItem& item) {
  auto* action = new QAction(CommandIcon(item.number), ToText(item.caption), &menu);
  action->setObjectName(NameOf(item.number));
  action->setToolTip(PlainToolTip(ToText(TipOf(item.number))));
  connect(action, &QAction::triggered, this, [this, number = item.number] { Run(number); });
  FollowCommand(item.number, action);
  menu.addAction(action);
  return action;
}

// Entry 0 of the list is none. Names are shown as they stand, long ones cut in their middle.
void RibbonBar::FillProfiles() {
  for (QAction* action : profiles_) delete action;
  profiles_.clear();
  const QFontMetrics metrics = systemMenu_->fontMetrics();
  const auto& list = form_.profiles.ProfileList();
  for (std::size_t at = 1; at < list.size(); ++at) {
    const QString whole = VisibleText(list[at].name);
    QString shown = metrics.elidedText(whole, Qt::ElideMiddle, metrics.averageCharWidth() * 40);
    shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    auto* action = new QAction(shown, systemMenu_);
    const int number = profileCommands + static_cast<int>(at);
    action->setObjectName(NameOf(number));
    action->setToolTip(PlainToolTip(whole));
    connect(action, &QAction::triggered, this, [this, number] { Run(number); });
    systemMenu_->insertAction(behindProfiles_, action);
    profiles_.push_back(action);
  }
  NameSavedProfile();
}

// The panel of the current profile follows the list of the ribbon alone: which profile a save would
// replace, the button itself tells.
void RibbonBar::NameSavedProfile() {
  const ProfileEntry& current = form_.profiles.Current();
  std::string description(TipOf(commandSaveProfile));
  constexpr std::ptrdiff_t longest = 60;
  if (current.id > 0) {
    const QString name = VisibleText(*LeftCharacters(current.name, longest));
    description += " \"" + ToBytes(name) + "\"";
  }
  auto* button = findChild<RibbonButton*>(NameOf(commandSaveProfile));
  button->setToolTip(CommandToolTip(button->text(), description));
}

void RibbonBar::Run(int number) {
  GiveKeyboardBack();
  QMetaObject::invokeMethod(
      this, [this, number] { form_.Dispatch(number); }, Qt::QueuedConnection);
}

int RibbonBar::SelectedTab() const {
  return tabs_->currentIndex();
}

void RibbonBar::SelectTab(int tab) {
  tabs_->setCurrentIndex(tab);
}

void RibbonBar::TurnTo(int tab) {
  groups_->setCurrentIndex(tab);
  form_.ribbon.SelectedTab = tab;
  form_.Dispatch(commandSelectTab);
}

bool RibbonBar::IsMinimised() const {
  return groups_->isHidden();
}

void RibbonBar::SetMinimised(bool minimised) {
  if (minimised && groups_->isAncestorOf(QApplication::focusWidget())) tabs_->setFocus();
  groups_->setHidden(minimised);
}

bool RibbonBar::HasKeyboard() const {
  return isAncestorOf(QApplication::focusWidget());
}

void RibbonBar::TakeKeyboard() {
  if (!HasKeyboard()) before_ = QApplication::focusWidget();
  tabs_->setFocus(Qt::ShortcutFocusReason);
}

bool RibbonBar::GiveKeyboardBack() {
  const bool gives = HasKeyboard() && before_;
  if (gives) before_->setFocus(Qt::OtherFocusReason);
  before_ = nullptr;
  return gives;
}

bool RibbonBar::PressLetter(QChar letter) {
  const QChar lower = letter.toLower();
  return groups_->isAncestorOf(QApplication::focusWidget()) ? PressGroupLetter(lower)
                                                            : PressTabRowLetter(lower);
}

bool RibbonBar::PressTabRowLetter(QChar letter) {
  for (RibbonButton* button : {system_, right_}) {
    if (button->Letter() != letter) continue;
    button->animateClick();
    return true;
  }
  const int tab = tabs_->TabOf(letter);
  if (tab < 0) return false;
  SelectTab(tab);
  tabs_->down();
  return true;
}

bool RibbonBar::PressGroupLetter(QChar letter) {
  for (const GroupCaption* caption : captions_) {
    const bool isInFront = groups_->currentWidget()->isAncestorOf(caption);
    if (!isInFront || caption->Letter() != letter) continue;
    QWidget* first = FirstForKeyboard(*caption->parentWidget());
    if (first) first->setFocus(Qt::TabFocusReason);
    return first != nullptr;
  }
  return false;
}

// Letters are underlined where the keyboard is, since they count only there.
void RibbonBar::ShowMarks() {
  // Who leaves by a click has nothing to be given back; a menu only borrows the keyboard.
  const bool isBorrowed = !QApplication::focusWidget() || QApplication::activePopupWidget();
  if (!HasKeyboard() && !isBorrowed) before_ = nullptr;
  const bool inGroups = groups_->isAncestorOf(QApplication::focusWidget());
  const bool inTabRow = HasKeyboard() && !inGroups;
  tabs_->SetMarked(inTabRow);
  right_->SetMarked(inTabRow);
  for (GroupCaption* caption : captions_) caption->SetMarked(inGroups);
}

}  // namespace tallowbrook
