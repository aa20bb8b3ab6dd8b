#include "desktop/status_panes.h"

#include <QHBoxLayout>
#include <QStatusBar>
#include <QVBoxLayout>

#include "desktop/look.h"

namespace tallowbrook {

StatusPanes::StatusPanes(StatusBar& status, QStatusBar& bar)
    : status_(status),
      row_(*new QWidget(&bar)),
      message_(*new ElidedLabel(&row_)),
      count_(*new ElidedLabel(&row_)),
      throttle_([this] { Show(); }) {
  message_.setObjectName(QStringLiteral("StatusPane0"));
  count_.setObjectName(QStringLiteral("StatusPane1"));
  for (ElidedLabel* pane : {&message_, &count_}) {
    pane->setContentsMargins(spacing, 2, spacing, 2);
    pane->setFixedHeight(pane->fontMetrics().height() + 8);
  }
  auto* layout = new QHBoxLayout(&row_);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(&message_, 1);
  layout->addWidget(&count_);
  count_.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  count_.setFixedWidth(count_.fontMetrics().averageCharWidth() * 36);
  bar.addWidget(&row_, 1);
  status_.changed = [this](std::size_t) { Changed(); };
  Show();
}

StatusPanes::~StatusPanes() {
  status_.changed = nullptr;
}

void StatusPanes::Changed() {
  if (throttle_.Due()) {
    throttle_.Now();
    message_.repaint();
  } else {
    throttle_.Touch();
  }
}

void StatusPanes::Show() {
  message_.ShowText(status_.Pane(0));
  count_.ShowText(status_.Pane(1));
}

QVBoxLayout* MakeBody(QWidget& window, StatusBar& status, std::unique_ptr<StatusPanes>& panes) {
  auto* column = new QVBoxLayout(&window);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* body = new QVBoxLayout;
  body->setContentsMargins(margin, margin, margin, margin);
  body->setSpacing(margin);
  column->addLayout(body, 1);
  auto* bar = new QStatusBar(&window);
  bar->setSizeGripEnabled(false);
  panes = std::make_unique<StatusPanes>(status, *bar);
  column->addWidget(bar);
  return body;
}

}  // namespace tallowbrook
