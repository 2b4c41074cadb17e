// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <functional>
#include <vector>

namespace velorin {

/// A paragraph in which names lead on: by a press, by Tab and Return, by an action of assistive technology for each.
class NameLine : public QLabel {
  Q_OBJECT

 public:
  struct Piece {
    QString text;
    bool leads_on = false;
  };

  /// `opened` gets the place of a name among the pieces.
  NameLine(const QString& name, std::vector<Piece> pieces, std::function<void(int piece)> opened,
           QWidget* parent = nullptr);

  const std::vector<Piece>& pieces() const { return pieces_; }
  /// What a press on a name does; nothing while another form stands over the line.
  void open(int piece);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  /// Writes the text in the colours of now.
  void write();

  std::vector<Piece> pieces_;
  std::function<void(int)> opened_;
};

}  // namespace velorin
