// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/forms/answer_view.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <stop_token>
#include <utility>

#include "archive/archive_file.h"
#include "archive/archive_keeper.h"
#include "archive/forms/answer_table.h"
#include "desktop/back_work.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr const char* no_matches_yet =
    "No match stands in the archive yet. Each match that is added to the careers and records will.";

/// With a few of the names of which what was given is a part.
std::string told_as(const question_error& error) {
  QString words = QString::fromStdString(error.what());
  if (error.name.empty()) return error.what();
  const QString given = QString::fromStdString(error.name);
  words += QStringLiteral(" \"%1\"").arg(given);
  QStringList near;
  constexpr int few = 5;
  for (const std::string& known : error.known) {
    const QString name = QString::fromStdString(known);
    if (near.size() < few && name.contains(given, Qt::CaseInsensitive)) near << name;
  }
  if (!near.isEmpty()) words += QStringLiteral("; near: %1").arg(near.join(QStringLiteral(", ")));
  return words.toStdString();
}

}  // namespace

AnswerView::AnswerView(const database_files& files, QWidget* parent)
    : QWidget(parent),
      files_(files),
      work_(new BackWork(this)),
      state_(new_named_label(QStringLiteral("state"), {}, TextRole::muted)),
      table_(new TableView(QStringLiteral("answer"))) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(4);
  state_->setWordWrap(true);
  rows->addWidget(state_);
  rows->addWidget(table_, 1);
  rows->addStretch(0);
  table_->setMinimumSize(320, 120);
  table_->set_lowest_row(22);
  table_->setProperty("own_links", true);
  table_->keep_as([this] {
    Table whole = whole_answer_table(told_);
    whole.name = name_;
    return whole;
  });
}

void AnswerView::look_up(const QString& name, const question& asked, Find find) {
  name_ = name;
  asked_ = asked;
  state_->setText(QStringLiteral("Looking it up ..."));
  work_->ask([this, files = files_, find = std::move(find)](const std::stop_token& stop, const auto&) {
    found what = found::answer;
    answer told;
    std::string why;
    try {
      const archive_file archive = settled_archive(files);
      const std::stop_callback stopped(stop, [&archive] { archive.interrupt(); });
      if (archive.last_id() == 0) {
        what = found::no_matches;
      } else {
        told = find(archive);
      }
    } catch (const question_error& error) {
      what = found::fault;
      why = told_as(error);
    } catch (const run_time_error& error) {
      std::error_code unknown;
      what = std::filesystem::exists(archive_path(files), unknown) ? found::fault : found::no_matches;
      why = to_utf8(error.what());
    }
    return BackWork::Show([this, what, told = std::move(told), why = std::move(why)] {
      if (what == found::answer) {
        show_answer(told);
      } else {
        show_fault(what, why);
      }
      emit answered();
    });
  });
}

void AnswerView::on_link(std::function<void(const archive_subject&)> follow) { follow_ = std::move(follow); }

void AnswerView::show_answer(const answer& told) {
  told_ = told;
  const std::size_t rows = told.rows.size();
  state_->setText(rows == 0   ? QStringLiteral("Nothing in the archive is like this.")
                  : rows == 1 ? QStringLiteral("1 row")
                              : QStringLiteral("%1 rows").arg(rows));
  Table table = answer_table(told_, asked_, columns_);
  table.name = name_;
  const bool leads_on =
      std::any_of(table.rows.begin(), table.rows.end(), [](const TableRow& row) { return row.opens; });
  const auto open = [this](int row) {
    const int column = columns_.at(static_cast<std::size_t>(table_->opened_column()));
    const auto about = led_to_by(told_, static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    if (about && follow_) follow_(*about);
  };
  table_->set_table(std::move(table));
  table_->on_open(leads_on ? std::function<void(int)>(open) : nullptr, TableView::Opens::press);
  table_->show();
  restore();
}

void AnswerView::show_fault(found what, const std::string& why) {
  told_ = {};
  table_->hide();
  state_->setText(what == found::no_matches ? QString::fromLatin1(no_matches_yet) : QString::fromStdString(why));
}

void AnswerView::stand_at(const archive_place& place) { wanted_ = place; }

void AnswerView::restore() {
  if (wanted_.row >= 0 && wanted_.row < table_->model()->rowCount()) {
    table_->setCurrentIndex(table_->model()->index(wanted_.row, std::max(0, wanted_.column)));
  }
  table_->verticalScrollBar()->setValue(wanted_.scrolled);
  wanted_ = {};
}

void AnswerView::keep_in(archive_place& place) const {
  place.row = table_->currentIndex().row();
  place.column = table_->currentIndex().column();
  place.scrolled = table_->verticalScrollBar()->value();
}

bool AnswerView::is_waiting() const { return work_->is_working(); }

}  // namespace velorin
