// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "desktop/ground_scene.h"

namespace velorin {

/// A picture of a ground: its sky and light by the hour, clouds by the weather, what stands behind it by the country;
/// painted for the theme.
class GroundPicture : public QWidget {
  Q_OBJECT

 public:
  explicit GroundPicture(const QString& name, QWidget* parent = nullptr);

  /// Where and when it is; without it a ground anywhere, early in a clear afternoon.
  void set_scene(const GroundScene& scene);
  const GroundScene& scene() const { return scene_; }

  /// Words over the picture: a large line and a smaller one.
  void set_words(const QString& title, const QString& below);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  GroundScene scene_;
  QString title_;
  QString below_;
};

/// Fills what is left of a page below its choices with the picture of a ground; it goes where there is little room.
class GroundBelow : public QWidget {
  Q_OBJECT

 public:
  GroundBelow();

  /// The country of the ground.
  void show_country(const QString& country);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  GroundPicture* picture_;
};

}  // namespace velorin
