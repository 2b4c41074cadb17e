// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/archive_place.h"
#include "desktop/form.h"

namespace velorin {

/// The base of the archive's windows. Each shows one place of a history; a link, Back and Forward close it and have the
/// history stand at the next one, which whoever runs it shows. Alt+Left and Alt+Right, the two buttons of a mouse for
/// it, and the bar of the main window go back and forward; Escape goes back, too, and closes the first place.
class ArchiveForm : public Form {
  Q_OBJECT

 public:
  /// `history` outlives the window.
  ArchiveForm(const QString& name, archive_history& history, QWidget* parent);
  ~ArchiveForm() override;

  /// The window has closed for another place, at which the history stands now.
  bool leads_on() const { return leads_on_; }
  /// Goes on to a page from here; nothing where it is this one.
  void follow(const archive_subject& about) { go_to(about); }

 protected:
  /// What is chosen here, for whoever comes back.
  virtual void keep(archive_place& here) const = 0;

  archive_history& history() const { return history_; }
  void go_to(const archive_subject& about);
  void go_to(archive_place place);
  void go_back();
  void go_forward();

  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void leave();

  archive_history& history_;
  bool leads_on_ = false;
};

}  // namespace velorin
