// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_pointer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/form.h"
#include "desktop/modality.h"
#include "desktop/name_doors.h"
#include "desktop/name_places.h"
#include "desktop/of_application.h"
#include "desktop/program_end.h"
#include "desktop/table_view.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

/// The line under the name at which the pointer is.
class NameMark : public QWidget {
 public:
  NameMark() {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setObjectName(QStringLiteral("name_mark"));
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), theme().blue);
  }
};

Form* form_around(QWidget* widget) {
  for (; widget != nullptr; widget = widget->parentWidget()) {
    if (auto* form = qobject_cast<Form*>(widget)) return form;
  }
  return nullptr;
}

/// The table of which this is the viewport; nullptr for one that has links of its own.
TableView* table_around(QWidget* widget) {
  auto* view = qobject_cast<TableView*>(widget->parentWidget());
  return view != nullptr && view->viewport() == widget && !view->property("own_links").toBool() ? view : nullptr;
}

/// A widget that names may stand in.
bool may_have_names(QWidget* widget) {
  return widget != nullptr && (qobject_cast<QLabel*>(widget) != nullptr || table_around(widget) != nullptr);
}

std::optional<PlacedName> name_at(QWidget* widget, const QPoint& at) {
  std::vector<PlacedName> names;
  if (const auto* label = qobject_cast<QLabel*>(widget)) {
    names = names_of(*label, name_book());
  } else if (const TableView* view = table_around(widget)) {
    names = names_of(*view, view->indexAt(at), name_book());
  }
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const PlacedName& name) { return name.place.contains(at); });
  return found == names.end() ? std::nullopt : std::optional(*found);
}

class NamePointer : public QObject {
 public:
  explicit NamePointer(QObject* parent) : QObject(parent) {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, [this] {
      if (const auto waiting = std::exchange(waiting_, std::nullopt); waiting && waiting->in) {
        follow_name(waiting->link, *waiting->in);
      }
    });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Enter:
      case QEvent::Leave:
      case QEvent::MouseMove:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
        return watched->isWidgetType() && mouse(static_cast<QWidget*>(watched), event);
      case QEvent::KeyPress:
        return watched->isWidgetType() && key(static_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event));
      case QEvent::Hide:
      case QEvent::Wheel:
        if (marked_ != nullptr && watched == marked_) point_nowhere();
        return false;
      default:
        return false;
    }
  }

 private:
  struct Pressed {
    QPointer<QWidget> in;
    NameLink link;
    bool taken = false;  ///< the widget has not seen the press
  };

  bool mouse(QWidget* widget, QEvent* event) {
    if (!may_have_names(widget)) return false;
    const Form* form = form_around(widget);
    if (form == nullptr || is_covered(*form) || !widget->isEnabled()) return false;
    if (event->type() == QEvent::Enter) {
      widget->setMouseTracking(true);
      return false;
    }
    if (event->type() == QEvent::Leave) {
      point_nowhere();
      return false;
    }
    auto* mouse_event = static_cast<QMouseEvent*>(event);
    const std::optional<PlacedName> name = name_at(widget, mouse_event->position().toPoint());
    switch (event->type()) {
      case QEvent::MouseMove:
        point_at(widget, name);
        return false;
      case QEvent::MouseButtonPress:
        return press(widget, *mouse_event, name);
      case QEvent::MouseButtonRelease:
        return release(widget, name);
      default:
        soon_.stop();
        waiting_.reset();
        return false;
    }
  }

  bool press(QWidget* widget, const QMouseEvent& event, const std::optional<PlacedName>& name) {
    pressed_.reset();
    if (!name || event.button() != Qt::LeftButton || event.modifiers() != Qt::NoModifier) return false;
    TableView* view = table_around(widget);
    const QModelIndex cell = view == nullptr ? QModelIndex() : view->indexAt(event.position().toPoint());
    // Where a press opens the row, it shall not do both.
    const bool taken = view == nullptr || (view->opens_by_press() && view->can_open(cell));
    pressed_ = Pressed{widget, name->link, taken};
    if (taken && view != nullptr) view->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    return taken;
  }

  bool release(QWidget* widget, const std::optional<PlacedName>& name) {
    const auto pressed = std::exchange(pressed_, std::nullopt);
    if (!pressed || pressed->in != widget) return false;
    if (!name || !(name->link == pressed->link)) return pressed->taken;
    const TableView* view = table_around(widget);
    if (view != nullptr && !view->opens_by_press() && view->can_open(view->currentIndex())) {
      waiting_ = pressed;
      soon_.start(QApplication::doubleClickInterval());
    } else {
      follow_name(pressed->link, *widget);
    }
    return pressed->taken;
  }

  static bool key(QWidget* widget, const QKeyEvent& event) {
    const bool all = event.key() == Qt::Key_L && event.modifiers() == Qt::ControlModifier;
    const bool cell = (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
                      (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
    if (!all && !cell) return false;
    const Form* form = form_around(widget);
    if (form == nullptr || is_covered(*form) || name_book().is_empty()) return false;
    if (all) {
      offer_names(names_on(*form, name_book()), *form, form->mapToGlobal(QPoint(48, 48)));
      return true;
    }
    const auto* view = qobject_cast<TableView*>(widget);
    return view != nullptr && follow_cell(*view);
  }

  static bool follow_cell(const TableView& view) {
    const QModelIndex cell = view.currentIndex();
    std::vector<NameLink> names;
    for (const FoundName& name : name_book().names_in(cell.data().toString())) names.push_back(name.link);
    if (names.empty()) return false;
    if (names.size() == 1) {
      follow_name(names.front(), view);
    } else {
      offer_names(names, view, view.viewport()->mapToGlobal(view.visualRect(cell).bottomLeft()));
    }
    return true;
  }

  void point_at(QWidget* widget, const std::optional<PlacedName>& name) {
    if (!name) return point_nowhere();
    if (marked_ != widget) {
      point_nowhere();
      marked_ = widget;
      had_cursor_ = widget->testAttribute(Qt::WA_SetCursor);
    }
    if (!mark_) mark_ = new NameMark;
    if (mark_->parentWidget() != widget) mark_->setParent(widget);
    constexpr int thick = 1;
    mark_->setGeometry(name->place.left(), name->place.bottom() - thick + 1, name->place.width(), thick);
    mark_->show();
    widget->setCursor(Qt::PointingHandCursor);
  }

  void point_nowhere() {
    if (mark_) mark_->hide();
    QWidget* widget = marked_;
    marked_ = nullptr;
    if (widget == nullptr) return;
    if (had_cursor_) {
      widget->setCursor(Qt::ArrowCursor);
    } else {
      widget->unsetCursor();
    }
  }

  QTimer soon_;
  std::optional<Pressed> pressed_;
  std::optional<Pressed> waiting_;  // for a second press
  QPointer<QWidget> marked_;
  QPointer<NameMark> mark_;
  bool had_cursor_ = false;
};

}  // namespace

void point_at_names() {
  static QPointer<NamePointer> pointer;
  if (pointer || qApp == nullptr) return;
  pointer = new NamePointer(qApp);
  qApp->installEventFilter(pointer);
}

}  // namespace velorin
