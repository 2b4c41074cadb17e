// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velorin {

/// The picture of the opening form: a ground at the start of play, painted in the colours of the theme.
class GroundPicture : public QWidget {
  Q_OBJECT

 public:
  explicit GroundPicture(const QString& name, QWidget* parent = nullptr);

  /// Words over the picture: a large line and a smaller one.
  void set_words(const QString& title, const QString& below);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
  QString below_;
};

}  // namespace velorin
