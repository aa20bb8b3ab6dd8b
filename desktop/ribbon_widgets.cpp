#include "desktop/ribbon_widgets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionTab>
#include <QStyleOptionToolButton>
#include <QToolTip>
#include <algorithm>

#include "base/controls.h"
#include "desktop/icons.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

// The caption as the toolkit draws it with its letter underlined, or without.
QString Drawn(std::string_view caption, bool marked) {
  return marked ? ToText(caption) : PlainCaption(caption);
}

// Broken at the blank that leaves the shorter of the longer lines; a word alone has an empty line
// below it.
QString OnTwoLines(const QString& caption, const QFontMetrics& metrics) {
  QString best = caption + QLatin1Char('\n');
  int least = metrics.horizontalAdvance(caption);
  for (qsizetype at = caption.indexOf(QLatin1Char(' ')); at >= 0;
       at = caption.indexOf(QLatin1Char(' '), at + 1)) {
    const int width = std::max(metrics.horizontalAdvance(caption.left(at)),
                               metrics.horizontalAdvance(caption.mid(at + 1)));
    if (width >= least) continue;
    least = width;
    best = caption.left(at) + QLatin1Char('\n') + caption.mid(at + 1);
  }
  return best;
}

}  // namespace

QString PlainCaption(std::string_view caption) {
  return ToText(caption).remove(QLatin1Char('&'));
}

QChar MarkedLetter(std::string_view caption) {
  const std::size_t behind = caption.find('&') + 1;
  return behind == 0 || behind == caption.size() ? QChar() : QChar(caption[behind]).toLower();
}

// The toolkit wraps a tool tip only where a table bounds it.
QString CommandToolTip(const QString& title, std::string_view description) {
  constexpr int widest = 180 - 16;  // without its frame
  constexpr int inset = 2;
  constexpr qsizetype surelyWider = 40;  // characters
  const QString text = ToText(description);
  QFont bold = QToolTip::font();
  bold.setBold(true);
  const int wanted = text.size() >= surelyWider
                         ? widest
                         : std::max(QFontMetrics(bold).horizontalAdvance(title),
                                    QFontMetrics(QToolTip::font()).horizontalAdvance(text));
  return QStringLiteral("<table width='%1'><tr><td><b>%2</b><br>%3</td></tr></table>")
      .arg(std::min(widest, wanted + 4 * inset))
      .arg(title.toHtmlEscaped(), text.toHtmlEscaped());
}

RibbonButton::RibbonButton(std::string_view caption, QWidget* parent)
    : QToolButton(parent), caption_(caption) {
  setText(PlainCaption(caption));
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setFocusPolicy(Qt::TabFocus);
  setAutoRaise(true);
}

void RibbonButton::ShowLarge(const QIcon& icon) {
  setAccessibleName(PlainCaption(caption_));
  setText(OnTwoLines(PlainCaption(caption_), fontMetrics()));
  setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  setIcon(icon);
  setIconSize(QSize(iconEdge, iconEdge));
}

void RibbonButton::SetMarked(bool marked) {
  marked_ = marked;
  update();
}

void RibbonButton::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  if (marked_) option->text = Drawn(caption_, true);
}

void RibbonButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up && up) {
    up();
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    animateClick();
  } else {
    QToolButton::keyPressEvent(event);
  }
}

RibbonTabs::RibbonTabs(QWidget* parent) : QTabBar(parent) {
  setObjectName(QStringLiteral("RibbonTabs"));
  setDrawBase(false);
  setExpanding(false);
  setUsesScrollButtons(false);
  setFocusPolicy(Qt::TabFocus);
  // The tabs are measured before they first show, and then not anew.
  ensurePolished();
}

void RibbonTabs::AddTab(std::string_view caption) {
  captions_.push_back(caption);
  addTab(PlainCaption(caption));
}

void RibbonTabs::SetMarked(bool marked) {
  marked_ = marked;
  update();
}

int RibbonTabs::TabOf(QChar letter) const {
  const auto found = std::ranges::find(captions_, letter, MarkedLetter);
  return found == captions_.end() ? -1 : static_cast<int>(found - captions_.begin());
}

void RibbonTabs::initStyleOption(QStyleOptionTab* option, int tab) const {
  QTabBar::initStyleOption(option, tab);
  const auto at = static_cast<std::size_t>(tab);
  if (marked_ && at < captions_.size()) option->text = Drawn(captions_[at], true);
}

void RibbonTabs::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Down && down) return down();
  QTabBar::keyPressEvent(event);
}

void RibbonTabs::mousePressEvent(QMouseEvent* event) {
  QTabBar::mousePressEvent(event);
  const bool isOnTab = tabAt(event->position().toPoint()) >= 0;
  if (isOnTab && event->button() == Qt::LeftButton && clicked) clicked();
}

void RibbonTabs::mouseDoubleClickEvent(QMouseEvent* event) {
  const bool isOnTab = tabAt(event->position().toPoint()) >= 0;
  if (isOnTab && event->button() == Qt::LeftButton && doubleClicked) doubleClicked();
}

GroupCaption::GroupCaption(std::string_view caption, QWidget* parent)
    : QLabel(parent), caption_(caption) {
  setObjectName(QStringLiteral("RibbonCaption"));
  setAlignment(Qt::AlignCenter);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  setFont(small);
  SetMarked(false);
}

// A label without a field of its own draws no access key, but for one in rich text.
void GroupCaption::SetMarked(bool marked) {
  QString text = PlainCaption(caption_);
  const auto at = static_cast<qsizetype>(caption_.find('&'));
  const bool underlined = marked && !Letter().isNull();
  setTextFormat(underlined ? Qt::RichText : Qt::PlainText);
  if (underlined) {
    text = text.left(at).toHtmlEscaped() + QLatin1String("<u>") + text.mid(at, 1).toHtmlEscaped() +
           QLatin1String("</u>") + text.mid(at + 1).toHtmlEscaped();
  }
  setText(text);
}

ActingCombo::ActingCombo(List& list, std::function<void()> chosen, QWidget* parent)
    : QuietCombo(parent), list_(list) {
  setObjectName(ToText(list.Name()));
  SetWidth(Width::OfCharacters, 18);
  // A click on the list leaves the keyboard where it is.
  setFocusPolicy(Qt::TabFocus);
  connect(this, &QComboBox::activated, this, [this, chosen = std::move(chosen)](int index) {
    list_.Select(index);
    chosen();
  });
  Refresh();
}

void ActingCombo::Refresh() {
  QStringList items;
  const int widest = fontMetrics().averageCharWidth() * 50;
  for (const std::string& item : list_.Items()) {
    items += fontMetrics().elidedText(VisibleText(item), Qt::ElideMiddle, widest);
  }
  bool same = count() == items.size();
  for (int at = 0; same && at < count(); ++at) same = itemText(at) == items[at];
  if (!same) {
    clear();
    addItems(items);
  }
  setCurrentIndex(list_.Index());
}

void ActingCombo::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
      if (up) up();
      break;
    case Qt::Key_Left:
    case Qt::Key_Right:
      focusNextPrevChild(event->key() == Qt::Key_Right);
      break;
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
    case Qt::Key_F4:
      showPopup();
      break;
    default:
      // Neither a letter nor a key that pages chooses unseen.
      event->ignore();
  }
}

}  // namespace tallowbrook
