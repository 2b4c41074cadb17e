// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/help_window.h"

#include <QAbstractButton>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <map>

#include "desktop/controls.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

struct Purpose {
  const char* id;
  const char* words;
};

constexpr Purpose purposes[] = {
    {"opening", "The menu. Choose what to play or what to read."},
    {"savedgames",
     "The games that are kept: each as it was left. Continue goes on with one, Watch shows it from its beginning; "
     "copy, "
     "rename, delete, export, import."},
    {"watch",
     "A match as it was played. Play runs it at the pace chosen below; the arrows go back and forth by balls and "
     "overs, "
     "the slider to any ball, Wicket and its neighbours to the next of their kind. The reports read as at that moment. "
     "Nothing changes."},
    {"game_name", "The name under which a game is kept."},
    {"delete_question", "Whether a game is deleted for good."},
    {"keep_question", "Whether the game that you leave is kept, to be gone on with."},
    {"export_file", "The file to which a game is written."},
    {"import_file", "The file from which a game is taken."},
    {"quick", "A match with the sides of the last one. What has a tick the computer answers for you."},
    {"teamfrm",
     "Choose two teams, who captains them, and the ground. A practice match counts for no career, and its balls can be "
     "taken back."},
    {"wecond", "Weather and ground as they were drawn. Move a slider to change them."},
    {"Teamsel", "Tick the eleven men who play. Auto Select picks them for you."},
    {"toss", "Call the coin. Who wins it bats or bowls first."},
    {"leave_question", "Yes leaves the match before it has begun; nothing of it is kept."},
    {"main",
     "The match. Next Over bowls six balls at the pace chosen below; Play to goes on to a wicket, an over or the end "
     "of "
     "the innings. Take Back plays the last ball or over of a practice match anew. Aggression says how hard a man goes "
     "for runs, or "
     "for wickets; the settled bar grows with each ball that a batsman faces."},
    {"quit_question", "Yes ends it at once; the match in play is lost."},
    {"aggr", "A man's figures in this match, and how hard he goes from now on: 1 careful, 5 all out."},
    {"batorder", "Choose who comes in next."},
    {"chgbowler", "Choose who bowls. Nobody bowls more than ten overs, and nobody two in a row."},
    {"batsmandetails", "How a batsman made his runs."},
    {"scorecard", "The batting card. The buttons below lead to the other reports and write files."},
    {"scorecard2", "The batting card of the first innings."},
    {"Bowlcard", "The bowling of this innings: overs, maidens, runs, wickets."},
    {"bowlcard2nd", "The bowling of the first innings."},
    {"partners", "What each pair added, and when its wicket fell."},
    {"partners2", "What each pair of the first innings added."},
    {"graphs", "The runs of each over, wickets marked."},
    {"worms", "The scores of both sides, over by over."},
    {"save_file", "Choose where the file goes."},
    {"series1", "Two sides play up to ten matches."},
    {"sri_result", "The results of the series so far."},
    {"series2", "Three sides play each other in turn, and the two best a final."},
    {"triserresult", "The table of the tri series."},
    {"wctable", "Ten sides in two groups. Tick those that people captain, and choose the hosts."},
    {"grounds_question", "Yes plays on the grounds of the other hosts."},
    {"wc_fix", "The matches of the World Cup; the next one is marked."},
    {"wcsstab", "The tables of the World Cup."},
    {"Progressbar", "The match between two computer sides is being played."},
    {"Sqdet", "A player's career. Choose a team, then a player."},
    {"teamdet", "A team's results, rank and records."},
    {"reclists", "The record lists. Press one at the left."},
    {"recbook",
     "Put a question together, or press one at the left: it is answered as you change it. Every name and match leads "
     "on. Keep remembers the question under the name beside it."},
    {"archpage",
     "All that the archive of matches tells. Press a section at the left; names and matches lead on, Alt+Left back, "
     "Alt+Right forward. Compare sets a page aside to stand beside the next."},
    {"allrecs", "The batting or bowling of one team's men."},
    {"optfrm", "The database, the photos and the colours of exported pages."},
    {"matchcentre",
     "The match in every way: choose a view and an innings; an over picked in one view is picked in all."},
    {"matchrep", "The whole match: both cards, the scores over by over, what it brought. Page keys scroll."},
    {"anew_question", "Yes empties careers and records; they begin anew."},
    {"messages", "Messages without a tick pass by in the bar above, and the game goes on."},
    {"captaincy",
     "What is ticked the computer does for you; whatever you change by hand on the console is yours again."},
    {"frmAbout", "Who made the game."},
    {"unstopped", "Matches between computer sides run without a stop."},
    {"waiting", "Another program works on the same files; the game goes on when it is done."},
    {"message", "Read it, and press OK."},
    {"save_failed", "The game could not be saved. Make room or mend the cause and try again, or go on without."},
    {"guide_question", "Yes begins a match with six hints on the way."},
    {"nextball", "The chances of the next ball, exact, as the match stands."},
    {"matchline", "The chance of winning, ball by ball: where the match turned, and what each man moved."},
    {"help", "What one can do here, and by which keys."},
    {"jump", "Type a few letters of a page, a team or a player; Return goes there."},
};

/// The keys of a button: its mnemonic and its shortcuts.
QString keys_of(const QAbstractButton& button) {
  QStringList keys;
  const QKeySequence mnemonic = QKeySequence::mnemonic(button.text());
  if (!mnemonic.isEmpty()) keys << mnemonic.toString(QKeySequence::NativeText);
  for (const QShortcut* shortcut : button.findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
    for (const QKeySequence& key : shortcut->keys()) keys << key.toString(QKeySequence::NativeText);
  }
  if (const auto* pushed = qobject_cast<const QPushButton*>(&button); pushed != nullptr && pushed->isDefault()) {
    keys << QStringLiteral("Return");
  }
  return keys.join(QStringLiteral(", "));
}

/// What a control does; without the keys, which stand beside it.
QString hint_of(const QAbstractButton& button) {
  const QString tip = button.toolTip();
  const qsizetype keys = tip.lastIndexOf(QStringLiteral(" ("));
  return keys > 0 && tip.endsWith(u')') ? tip.left(keys) : tip;
}

/// What a button does whose caption is all that it tells.
QString meaning_of_act(const QString& name) {
  static const std::map<QString, const char*> meanings = {
      {QStringLiteral("OK"), "Goes on with what is shown"},
      {QStringLiteral("Cancel"), "Leaves this page; nothing is played"},
      {QStringLiteral("Auto Select"), "Ticks the eleven that the computer would pick"},
      {QStringLiteral("Clear Selection"), "Takes all ticks away"},
      {QStringLiteral("Career Bat Avgs."), "Shows the careers of these men with the bat"},
      {QStringLiteral("Career Bowl Avgs."), "Shows the careers of these men with the ball"},
      {QStringLiteral("Player Profile"), "Shows the career of the man chosen"},
      {QStringLiteral("Partner's Profile"), "Shows the career of the second man chosen"},
      {QStringLiteral("Bowling Figures"), "Overs, maidens, runs, wickets of each bowler"},
      {QStringLiteral("1st Innings"), "The batting card of the first innings"},
      {QStringLiteral("Partnerships"), "What each pair added"},
      {QStringLiteral("Runs Per Over Graph"), "The runs of each over as bars"},
      {QStringLiteral("Score Comparison Graph"), "Both scores over by over as lines"},
      {QStringLiteral("World Cup Tables"), "The tables of the groups"},
      {QStringLiteral("Play Next Match"), "Goes on to the match that is marked"},
      {QStringLiteral("Over before"), "Shows the balls of the over before"},
      {QStringLiteral("Over after"), "Shows the balls of the over after"},
      {QStringLiteral("Quit"), "Ends the match, after a question"},
  };
  const auto found = meanings.find(name);
  return found == meanings.end() ? QString() : QString::fromLatin1(found->second);
}

int importance(const QAbstractButton& button) {
  const auto* pushed = qobject_cast<const QPushButton*>(&button);
  if (pushed != nullptr && pushed->isDefault()) return 0;
  if (button.objectName() == QLatin1String("start_afresh")) return 3;
  for (const QWidget* at = button.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (at->objectName() == QLatin1String("foot")) return 1;
  }
  return 2;
}

Table acts_of(const Form& form) {
  Table table;
  table.columns = {{QStringLiteral("Control")},
                   {QStringLiteral("Keys")},
                   {.heading = QStringLiteral("What it does"), .stretches = true}};
  const auto add = [&](const QString& control, const QString& keys, const QString& does) {
    TableRow row;
    row.cells = {{control}, {keys}, {does}};
    table.rows.push_back(row);
  };
  std::map<QString, bool> told;
  QList<QAbstractButton*> buttons = form.findChildren<QAbstractButton*>();
  // What is done most comes first: Return's button, those at the foot, then the page from its head on.
  std::stable_sort(buttons.begin(), buttons.end(), [](const QAbstractButton* one, const QAbstractButton* other) {
    return importance(*one) < importance(*other);
  });
  for (const QAbstractButton* button : buttons) {
    if (!button->isVisibleTo(&form) || button->window() != form.window()) continue;
    const QString keys = keys_of(*button);
    const QString name = button->accessibleName();
    if (keys.isEmpty() || name.isEmpty() || !told.emplace(name, true).second) continue;
    const QString hint = hint_of(*button);
    add(name, keys, hint == name ? meaning_of_act(name) : hint);
  }
  if (form.can_be_left()) add(QStringLiteral("Leave"), QStringLiteral("Esc"), QStringLiteral("Leaves this page"));
  add(QStringLiteral("Next control"), QStringLiteral("Tab"), QStringLiteral("Arrows move within lists and choices"));
  add(QStringLiteral("Go to"), QStringLiteral("Ctrl+K"), QStringLiteral("A page, a team or a player by typing"));
  add(QStringLiteral("Names"), QStringLiteral("Ctrl+L"),
      QStringLiteral("The players, teams and grounds named here: each leads to its page, as does a press on the name"));
  add(QStringLiteral("Name in a table"), QStringLiteral("Ctrl+Return"),
      QStringLiteral("Opens the page of who is named"));
  add(QStringLiteral("Help"), QStringLiteral("F1"), QStringLiteral("This page"));
  return table;
}

}  // namespace

QString purpose_of(const QString& id) {
  for (const Purpose& purpose : purposes) {
    if (id == QLatin1String(purpose.id)) return QString::fromLatin1(purpose.words);
  }
  return {};
}

HelpWindow::HelpWindow(const Form& about, QWidget* parent) : Form(QStringLiteral("help"), Dismissal::closes, parent) {
  stand_as(Place::sheet);
  const QString name = about.windowTitle().trimmed().isEmpty() ? about.accessibleName() : about.windowTitle().trimmed();
  set_title(QStringLiteral("Help"), QStringLiteral("Help: %1").arg(spoken_name(name)));
  const QString purpose = purpose_of(about.objectName());
  auto* words = new_named_label(QStringLiteral("purpose"), purpose);
  words->setWordWrap(true);
  words->setMinimumWidth(520);
  body()->addWidget(words);
  setAccessibleDescription(purpose);
  auto* acts = new TableView(QStringLiteral("acts"));
  acts->set_table(acts_of(about));
  acts->setAccessibleName(QStringLiteral("What one can do here"));
  acts->setMinimumHeight(200);
  body()->addWidget(acts, 1);
  prefer_size(QSize(820, 560));
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    accept();
  })->setFocus();
}

}  // namespace velorin
