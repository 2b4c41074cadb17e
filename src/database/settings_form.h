// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velorin {

struct open_database;

/// What the settings form shows. Texts are Windows-1252; colours are red + 256 x green + 65536 x blue.
struct settings_fields {
  std::vector<std::string> databases;      ///< databases on offer
  std::string database;                    ///< the chosen one; "" for none
  std::string current_drive;               ///< root of the folder chooser
  std::string photo_folder;                ///< the chosen folder; "" for none
  long sample_text_color = 0;              ///< of the sample
  long sample_back_color = 0xFFFFFF;       ///< of the sample
  std::string sample_font = "Sans Serif";  ///< of the sample; the window fills in the font it uses
  long font_dialog_color = 0;              ///< the colour dialogs' colours
  long back_dialog_color = 0xFFFFFF;
  bool closed = false;  ///< the form has been left by its OK
};

/// The form that chooses the database, the folder of the photos and the colours of exported pages. Its window shows the
/// fields and calls the procedures.
struct settings_form : settings_fields {
  explicit settings_form(open_database& data) : data_(data) {}

  /// A message box to show, with the information icon.
  struct shown_message {
    std::string title;
    std::string text;
  };

  /// Fills the fields from `settings` and the folder of the data files. A setting that cannot be shown, such as a
  /// database no longer on offer, a folder out of reach or a colour that is none, is passed over.
  /// The folder of the program stands for a folder out of reach, and none for one whose name has no place in
  /// Windows-1252.
  void open();

  /// A change of the drive. One that cannot be reached is ignored.
  void change_drive(const std::string& drive);
  /// "Change Background Color" with the colour that the dialog gave, nothing if it was cancelled.
  void change_back_color(std::optional<long> chosen);
  /// "Change Font Color" likewise.
  void change_font_color(std::optional<long> chosen);

  /// What to say below the database chosen: that options.mc cannot keep its name. "" for nothing.
  std::string database_note() const;
  /// The same below the folder.
  std::string folder_note() const;

  /// Whether the database chosen has careers or records that can be begun anew.
  bool has_careers() const;
  /// "Begin careers and records anew", once the user has said yes: empties those of the database chosen, and leaves the
  /// settings as they are. Returns the message of what has failed. Requires a database.
  std::optional<shown_message> begin_anew();

  /// "OK". Without a database returns the message to show and changes nothing. Else changes `settings` and the paths of
  /// `files`, writes options.mc and closes. Where it cannot be written, all that holds for this run, and the message
  /// tells why.
  std::optional<shown_message> accept();

 private:
  open_database& data_;
};

}  // namespace velorin
