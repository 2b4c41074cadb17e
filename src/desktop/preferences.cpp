// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/preferences.h"

#include <QSettings>
#include <memory>

#include "desktop/of_application.h"

namespace velorin::preferences {

namespace {

/// Writes what has changed when it goes.
struct Store {
  std::unique_ptr<QSettings> settings;
};

QSettings& settings() {
  auto& kept = of_application<Store>().settings;
  if (!kept) kept = std::make_unique<QSettings>(QStringLiteral("velorin"), QStringLiteral("velorin"));
  return *kept;
}

/// A number from 0 to `highest`; anything else in the file counts as `otherwise`.
int number(const QString& key, int highest, int otherwise) {
  bool is_number = false;
  const int value = settings().value(key).toInt(&is_number);
  return is_number && value >= 0 && value <= highest ? value : otherwise;
}

QString unstopped_key(const QString& form) { return QStringLiteral("without_stopping/") + form; }

/// The names stand in users' files, and do not change.
QString message_key(message_kind kind) {
  constexpr const char* names[] = {
      "other",          "toss_call",         "opening_bowlers", "bowler_change",     "full_quota",
      "fall_of_wicket", "batting_milestone", "hundred",         "bowling_milestone", "stand_milestone",
      "end_of_innings", "end_of_match"};
  return QStringLiteral("stops_for/") + QLatin1String(names[static_cast<std::size_t>(kind)]);
}

QString table_key(const QString& window, const QString& table) {
  return QStringLiteral("tables/%1/%2/").arg(window, table);
}

}  // namespace

void use_file(const QString& path) {
  of_application<Store>().settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
}

Appearance appearance() { return static_cast<Appearance>(number(QStringLiteral("appearance"), 3, 0)); }
void set_appearance(Appearance chosen) { settings().setValue(QStringLiteral("appearance"), static_cast<int>(chosen)); }

Pace pace() { return static_cast<Pace>(number(QStringLiteral("pace"), 2, static_cast<int>(Pace::quick))); }
void set_pace(Pace chosen) { settings().setValue(QStringLiteral("pace"), static_cast<int>(chosen)); }

QString last_skip() { return settings().value(QStringLiteral("last_skip")).toString(); }
void set_last_skip(const QString& name) { settings().setValue(QStringLiteral("last_skip"), name); }

bool plays_without_stopping(const QString& form) { return number(unstopped_key(form), 1, 0) == 1; }
void set_plays_without_stopping(const QString& form, bool on) { settings().setValue(unstopped_key(form), on ? 1 : 0); }

Captains captains() {
  return {number(QStringLiteral("captains/first_human"), 1, 1) == 1,
          number(QStringLiteral("captains/second_human"), 1, 0) == 1};
}
void set_captains(Captains chosen) {
  settings().setValue(QStringLiteral("captains/first_human"), chosen.first_human ? 1 : 0);
  settings().setValue(QStringLiteral("captains/second_human"), chosen.second_human ? 1 : 0);
}

bool guide_offered() { return number(QStringLiteral("guide_offered"), 1, 0) == 1; }
void set_guide_offered(bool offered) { settings().setValue(QStringLiteral("guide_offered"), offered ? 1 : 0); }

LastSides last_sides() {
  const auto text = [](const char* key) { return settings().value(QLatin1String(key)).toString(); };
  return {text("last_match/first"), text("last_match/second"), text("last_match/ground")};
}
void set_last_sides(const LastSides& sides) {
  settings().setValue(QStringLiteral("last_match/first"), sides.first);
  settings().setValue(QStringLiteral("last_match/second"), sides.second);
  settings().setValue(QStringLiteral("last_match/ground"), sides.ground);
}

QVariantMap last_choices(const QString& form) {
  return settings().value(QStringLiteral("last_choices/") + form).toMap();
}
void set_last_choices(const QString& form, const QVariantMap& chosen) {
  settings().setValue(QStringLiteral("last_choices/") + form, chosen);
}

QuickAnswers quick_answers() {
  const auto answered = [](const char* key) { return number(QLatin1String(key), 1, 1) == 1; };
  return {answered("quick/conditions"), answered("quick/elevens"), answered("quick/toss"), answered("quick/openers")};
}
void set_quick_answers(QuickAnswers answers) {
  settings().setValue(QStringLiteral("quick/conditions"), answers.conditions ? 1 : 0);
  settings().setValue(QStringLiteral("quick/elevens"), answers.elevens ? 1 : 0);
  settings().setValue(QStringLiteral("quick/toss"), answers.toss ? 1 : 0);
  settings().setValue(QStringLiteral("quick/openers"), answers.openers ? 1 : 0);
}

bool stops_for(message_kind kind) { return number(message_key(kind), 1, 1) == 1; }
void set_stops_for(message_kind kind, bool on) { settings().setValue(message_key(kind), on ? 1 : 0); }

bool moments() { return number(QStringLiteral("moments"), 1, 1) == 1; }
void set_moments(bool on) { settings().setValue(QStringLiteral("moments"), on ? 1 : 0); }

bool forecast() { return number(QStringLiteral("forecast"), 1, 1) == 1; }
void set_forecast(bool on) { settings().setValue(QStringLiteral("forecast"), on ? 1 : 0); }

bool adviser() { return number(QStringLiteral("adviser"), 1, 0) == 1; }
void set_adviser(bool on) { settings().setValue(QStringLiteral("adviser"), on ? 1 : 0); }

Delegated delegated() {
  const auto left = [](const char* key) { return number(QLatin1String(key), 1, 0) == 1; };
  return {left("delegated/toss"), left("delegated/line_up"), left("delegated/bowling"), left("delegated/aggressions")};
}
void set_delegated(const Delegated& left) {
  settings().setValue(QStringLiteral("delegated/toss"), left.toss ? 1 : 0);
  settings().setValue(QStringLiteral("delegated/line_up"), left.line_up ? 1 : 0);
  settings().setValue(QStringLiteral("delegated/bowling"), left.bowling ? 1 : 0);
  settings().setValue(QStringLiteral("delegated/aggressions"), left.aggressions ? 1 : 0);
}

QMap<QString, QString> kept_questions() {
  QMap<QString, QString> questions;
  const QVariantMap kept = settings().value(QStringLiteral("kept_questions")).toMap();
  for (auto each = kept.begin(); each != kept.end(); ++each) questions.insert(each.key(), each.value().toString());
  return questions;
}
void set_kept_questions(const QMap<QString, QString>& questions) {
  QVariantMap kept;
  for (auto each = questions.begin(); each != questions.end(); ++each) kept.insert(each.key(), each.value());
  settings().setValue(QStringLiteral("kept_questions"), kept);
}

QByteArray geometry(const QString& window) {
  return settings().value(QStringLiteral("windows/") + window).toByteArray();
}
void set_geometry(const QString& window, const QByteArray& geometry) {
  settings().setValue(QStringLiteral("windows/") + window, geometry);
}

TableState table_state(const QString& window, const QString& table) {
  const QString at = table_key(window, table);
  TableState state;
  state.hidden = settings().value(at + QStringLiteral("hidden")).toStringList();
  const QVariantMap widths = settings().value(at + QStringLiteral("widths")).toMap();
  for (auto width = widths.begin(); width != widths.end(); ++width) {
    if (width->toInt() > 0) state.widths[width.key()] = width->toInt();
  }
  state.sorted_by = settings().value(at + QStringLiteral("sorted_by")).toString();
  state.descending = number(at + QStringLiteral("descending"), 1, 0) == 1;
  return state;
}

void set_table_state(const QString& window, const QString& table, const TableState& state) {
  const QString at = table_key(window, table);
  QVariantMap widths;
  for (auto width = state.widths.begin(); width != state.widths.end(); ++width) widths[width.key()] = width.value();
  settings().setValue(at + QStringLiteral("hidden"), state.hidden);
  settings().setValue(at + QStringLiteral("widths"), widths);
  settings().setValue(at + QStringLiteral("sorted_by"), state.sorted_by);
  settings().setValue(at + QStringLiteral("descending"), state.descending ? 1 : 0);
}

QString last_folder() { return settings().value(QStringLiteral("last_folder")).toString(); }
void set_last_folder(const QString& folder) { settings().setValue(QStringLiteral("last_folder"), folder); }

}  // namespace velorin::preferences
