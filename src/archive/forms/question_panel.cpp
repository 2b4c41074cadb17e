// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/question_panel.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "archive/forms/answer_table.h"
#include "archive/written_question.h"
#include "desktop/controls.h"

namespace velorin {

namespace {

constexpr std::array<std::pair<const char*, const char*>, 6> sources = {{{"batting", "Innings of batsmen"},
                                                                         {"bowling", "Figures of bowlers"},
                                                                         {"innings", "Innings of teams"},
                                                                         {"stands", "Stands"},
                                                                         {"meetings", "Batsmen against bowlers"},
                                                                         {"matches", "Matches"}}};
constexpr std::array<std::pair<const char*, const char*>, 7> operators = {{{"=", "is"},
                                                                           {"!=", "is not"},
                                                                           {">=", "at least"},
                                                                           {"<=", "at most"},
                                                                           {">", "more than"},
                                                                           {"<", "less than"},
                                                                           {"~", "contains"}}};
constexpr std::array<long, 7> numbers_of_rows = {10, 15, 25, 50, 100, 1000, 0};

std::string key_of(const QComboBox* choice) { return choice->currentData().toString().toStdString(); }

void choose(QComboBox* choice, const std::string& key) {
  choice->setCurrentIndex(std::max(0, choice->findData(QString::fromStdString(key))));
}

/// Before the name of a figure of sums in the key of an entry, since fields of rows have some of the same names.
constexpr std::string_view of_sums = "sum ";

QString entry_words(std::string_view key) {
  if (!key.starts_with(of_sums)) return field_heading(key);
  const QString figure = field_heading(key.substr(of_sums.size()));
  return QStringLiteral("Sum: %1").arg(figure);
}

/// Fills a choice with entries, and chooses again what was chosen.
void offer(QComboBox* choice, const char* none, const std::vector<std::string>& keys) {
  const std::string before = key_of(choice);
  choice->clear();
  choice->addItem(QString::fromLatin1(none), QString());
  for (const std::string& key : keys) choice->addItem(entry_words(key), QString::fromStdString(key));
  choose(choice, before);
}

}  // namespace

QuestionPanel::QuestionPanel(QWidget* parent)
    : QFrame(parent),
      from_(new_choice(QStringLiteral("from"), {})),
      sort_(new_choice(QStringLiteral("sort"), {})),
      direction_(new_choice(QStringLiteral("direction"), QStringLiteral("Which come first"))),
      top_(new_choice(QStringLiteral("top"), {})) {
  setObjectName(QStringLiteral("question"));
  setProperty("card", true);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(12, 8, 12, 8);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  add_source(*grid);
  for (int place = 0; place < static_cast<int>(conditions_.size()); ++place) add_condition_row(*grid, place);
  add_order(*grid);
  for (const int column : {1, 3, 5, 7}) grid->setColumnStretch(column, 1);
  set_question({});
}

QComboBox* QuestionPanel::new_choice(const QString& name, const QString& spoken) {
  auto* choice = new QComboBox;
  choice->setObjectName(name);
  choice->setAccessibleName(spoken);
  choice->setMinimumContentsLength(7);
  choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  choice->setMaxVisibleItems(24);
  connect(choice, &QComboBox::currentIndexChanged, this, [this] { tell_change(); });
  return choice;
}

void QuestionPanel::add_source(QGridLayout& grid) {
  for (const auto& [key, told] : sources) from_->addItem(QString::fromLatin1(told), QString::fromLatin1(key));
  grid.addWidget(new_caption(QStringLiteral("Look for"), u'L', from_), 0, 0);
  grid.addWidget(from_, 0, 1, 1, 3);
  for (int i = 0; i < 2; ++i) {
    by_.at(i) = new_choice(QStringLiteral("by_%1").arg(i + 1), QStringLiteral("and by"));
  }
  grid.addWidget(new_caption(QStringLiteral("Summed by"), u'u', by_[0]), 0, 4);
  grid.addWidget(by_[0], 0, 5, 1, 2);
  grid.addWidget(by_[1], 0, 7);
}

void QuestionPanel::add_condition_row(QGridLayout& grid, int place) {
  ConditionRow& row = conditions_.at(place);
  const int number = place + 1;
  row.field = new_choice(QStringLiteral("field_%1").arg(number), QStringLiteral("Condition %1").arg(number));
  row.op = new_choice(QStringLiteral("op_%1").arg(number), QStringLiteral("How condition %1 compares").arg(number));
  row.op->setMinimumContentsLength(5);
  for (const auto& [key, told] : operators) row.op->addItem(QString::fromLatin1(told), QString::fromLatin1(key));
  row.value = new QLineEdit;
  row.value->setObjectName(QStringLiteral("value_%1").arg(number));
  row.value->setAccessibleName(QStringLiteral("Value of condition %1").arg(number));
  row.value->setMinimumWidth(72);
  connect(row.value, &QLineEdit::textChanged, this, [this] { tell_change(); });
  const int line = 1 + place / 2;
  const int at = place % 2 * 4;
  if (place == 0) {
    grid.addWidget(new_caption(QStringLiteral("Where"), u'W', row.field), line, at);
  } else {
    grid.addWidget(new_named_label(QStringLiteral("and_%1").arg(number), QStringLiteral("and"), TextRole::muted), line,
                   at, Qt::AlignRight);
  }
  grid.addWidget(row.field, line, at + 1);
  grid.addWidget(row.op, line, at + 2);
  grid.addWidget(row.value, line, at + 3);
}

void QuestionPanel::add_order(QGridLayout& grid) {
  direction_->addItem(QStringLiteral("Most or last first"), true);
  direction_->addItem(QStringLiteral("Fewest or earliest first"), false);
  for (const long rows : numbers_of_rows) offer_rows(rows);
  grid.addWidget(new_caption(QStringLiteral("Sorted by"), u'y', sort_), 3, 0);
  grid.addWidget(sort_, 3, 1);
  grid.addWidget(direction_, 3, 2, 1, 2);
  grid.addWidget(new_caption(QStringLiteral("Rows at most"), u'm', top_), 3, 4);
  grid.addWidget(top_, 3, 5, 1, 2);
}

void QuestionPanel::offer_rows(long rows) {
  if (top_->findData(QVariant::fromValue(rows)) >= 0) return;
  top_->addItem(rows == 0 ? QStringLiteral("All") : QString::number(rows), QVariant::fromValue(rows));
}

void QuestionPanel::offer_fields() {
  const rows_of from = source_named(key_of(from_)).value_or(rows_of::batting);
  const std::vector<std::string> fields = row_fields(from);
  offer(by_[0], "Nothing", fields);
  offer(by_[1], "Nothing more", fields);
}

/// Which depend on whether the rows are summed.
void QuestionPanel::offer_figures() {
  const rows_of from = source_named(key_of(from_)).value_or(rows_of::batting);
  std::vector<std::string> fields = row_fields(from);
  std::vector<std::string> sorts = fields;
  if (!key_of(by_[0]).empty()) {
    sorts = sum_figures(from);
    for (const QComboBox* by : by_) {
      if (!key_of(by).empty()) sorts.push_back(key_of(by));
    }
    for (const std::string& figure : sum_figures(from)) fields.push_back(std::string(of_sums) + figure);
  }
  for (const ConditionRow& row : conditions_) offer(row.field, "(any)", fields);
  offer(sort_, "As played", sorts);
}

void QuestionPanel::set_question(const question& asked) {
  showing_ = true;
  choose(from_, std::string(source_name(asked.from)));
  offer_fields();
  for (std::size_t i = 0; i < by_.size(); ++i) choose(by_[i], i < asked.by.size() ? asked.by[i] : std::string());
  offer_figures();
  std::vector<condition> parts = asked.where;
  for (const condition& part : asked.having) parts.push_back({std::string(of_sums) + part.field, part.op, part.value});
  for (std::size_t i = 0; i < conditions_.size(); ++i) {
    const condition part = i < parts.size() ? parts[i] : condition{"", "=", ""};
    choose(conditions_[i].field, part.field);
    choose(conditions_[i].op, part.op);
    conditions_[i].value->setText(QString::fromStdString(part.value));
  }
  choose(sort_, asked.sort);
  direction_->setCurrentIndex(asked.descending ? 0 : 1);
  offer_rows(asked.top);
  top_->setCurrentIndex(top_->findData(QVariant::fromValue(asked.top)));
  showing_ = false;
}

question QuestionPanel::asked() const {
  question asked{.from = source_named(key_of(from_)).value_or(rows_of::batting)};
  for (const QComboBox* by : by_) {
    const std::string field = key_of(by);
    if (!field.empty() && std::find(asked.by.begin(), asked.by.end(), field) == asked.by.end()) {
      asked.by.push_back(field);
    }
  }
  for (const ConditionRow& row : conditions_) {
    const std::string key = key_of(row.field);
    if (key.empty()) continue;
    const bool summed = key.starts_with(of_sums);
    condition part{summed ? key.substr(of_sums.size()) : key, key_of(row.op),
                   row.value->text().trimmed().toStdString()};
    (summed ? asked.having : asked.where).push_back(std::move(part));
  }
  asked.sort = key_of(sort_);
  asked.descending = direction_->currentData().toBool();
  asked.top = top_->currentData().value<long>();
  return asked;
}

void QuestionPanel::tell_change() {
  if (showing_) return;
  showing_ = true;
  offer_fields();
  offer_figures();
  showing_ = false;
  emit changed();
}

}  // namespace velorin
