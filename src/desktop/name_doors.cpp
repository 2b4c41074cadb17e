// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_doors.h"

#include <QApplication>
#include <QMap>
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/form.h"
#include "desktop/modality.h"
#include "desktop/name_access.h"
#include "desktop/name_pointer.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"

namespace velorin {

namespace {

constexpr std::size_t most_in_one_menu = 30;

NameDoors& doors() {
  static NameDoors kept;
  return kept;
}

Form* form_of(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    if (const auto* form = qobject_cast<const Form*>(at)) return const_cast<Form*>(form);
  }
  return nullptr;
}

QMenu& menu_of_team(QMenu& menu, QMap<QString, QMenu*>& teams, const QString& team) {
  QMenu*& one = teams[team];
  if (one == nullptr) one = menu.addMenu(team.isEmpty() ? QStringLiteral("Players") : button_text(team));
  return *one;
}

void fill(QMenu& menu, const std::vector<NameLink>& names, const QWidget& from) {
  const QPointer<const QWidget> source = &from;
  const bool many = names.size() > most_in_one_menu;
  QMap<QString, QMenu*> teams;
  for (const NameLink& name : names) {
    const bool man = name.kind == NameLink::Kind::player;
    QMenu& into = many && man ? menu_of_team(menu, teams, name.team) : menu;
    const QString beside = man                                 ? name.team
                           : name.kind == NameLink::Kind::team ? QStringLiteral("Team")
                                                               : QStringLiteral("Ground");
    const QString words = button_text(name.name);
    into.addAction(beside.isEmpty() ? words : words + QLatin1Char('\t') + beside, &menu, [name, source] {
      if (source) follow_name(name, *source);
    });
  }
  if (names.empty()) menu.addAction(QStringLiteral("No name here leads on"))->setEnabled(false);
}

}  // namespace

void open_names_by(NameDoors given) {
  doors() = std::move(given);
  point_at_names();
  give_name_access();
}

const NameBook& name_book() {
  static const NameBook nobody;
  return doors().book ? doors().book() : nobody;
}

void follow_name(const NameLink& name, const QWidget& from) {
  const QPointer<Form> form = form_of(from);
  if (!form || !doors().open) return;
  QTimer::singleShot(0, form.data(), [form, name] {
    if (!form || !form->isVisible() || !form->isEnabled() || is_covered(*form) || !doors().open) return;
    guarded([&] { doors().open(name, *form); });
  });
}

void offer_names(const std::vector<NameLink>& names, const QWidget& from, const QPoint& at) {
  Form* form = form_of(from);
  if (form == nullptr || is_covered(*form) || !form->isEnabled()) return;
  auto* menu = new QMenu(form);
  menu->setObjectName(QStringLiteral("names"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  fill(*menu, names, *form);
  menu->popup(at);
}

}  // namespace velorin
