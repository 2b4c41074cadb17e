// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <functional>
#include <optional>

#include "desktop/form.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

namespace velorin {

struct open_database;

struct settings_form;

/// The settings: database, folder of the photos, colours of exported pages, and whether moments are
/// celebrated. Closing it keeps the former ones.
class SettingsWindow : public Form {
  Q_OBJECT

 public:
  /// What asks the user for a colour and for a folder, each starting from the present one; nothing and "" if cancelled.
  struct Choosers {
    std::function<std::optional<QColor>(QWidget* parent, const QColor& present)> color;
    std::function<QString(QWidget* parent, const QString& present)> folder;
  };
  /// The toolkit's own dialogs.
  static Choosers dialogs();

  /// `form` has been opened and outlives the window.
  explicit SettingsWindow(const open_database& database, settings_form& form, QWidget* parent = front_window(),
                          Choosers choosers = dialogs());

 private:
  void add_database();
  void add_careers(QVBoxLayout* rows);
  void add_folder();
  void add_sample();
  void add_moments();
  void browse();
  void show_database_note();
  /// What becomes of careers and records follows the database chosen.
  void show_careers();
  void begin_anew();
  std::optional<long> ask_color(long present);
  void show_sample();
  void confirm();

  settings_form& form_;
  Choosers choosers_;
  QComboBox* databases_ = nullptr;
  QLabel* database_note_ = nullptr;
  QLabel* careers_note_ = nullptr;
  QPushButton* begin_anew_ = nullptr;
  QLineEdit* folder_ = nullptr;
  QLabel* folder_note_ = nullptr;
  QLabel* sample_ = nullptr;
  QCheckBox* moments_ = nullptr;
  const open_database& data_;
};

}  // namespace velorin
