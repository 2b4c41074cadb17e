// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <filesystem>
#include <optional>

namespace velorin {

/// A player's photo, or a portrait drawn in its place; screen readers hear that there is no photo. Keeps the photo last
/// read and the portrait last drawn, so that showing the same man again reads no file and draws nothing anew.
class PhotoView : public QWidget {
  Q_OBJECT

 public:
  /// `size`: width and height in pixels.
  PhotoView(const QString& name, QSize size, QWidget* parent = nullptr);

  /// Shows the photo of `player`, read from `file`; without a file, or one that is no picture of the
  /// format that its ending names, or has more than 32 MiB, it is "No Pic Available", and the cause a hint. What is
  /// seen then is his portrait in the cap of `team`, or those words where there is no player.
  void show_photo(const QString& player, const std::optional<std::filesystem::path>& file, const QString& team = {});

  /// Another width and height in pixels.
  void set_size(QSize size);

  bool has_photo() const { return !photo_.isNull(); }
  /// A portrait stands in the photo's place.
  bool shows_portrait() const { return photo_.isNull() && !player_.isEmpty(); }
  /// There is a man whose photo or portrait it shows.
  bool shows_somebody() const { return !player_.isEmpty(); }
  QSize sizeHint() const override { return size_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// The portrait in the size of the view.
  const QPixmap& portrait();

  QSize size_;
  QString file_;
  QPixmap photo_;
  QString player_;
  QString team_;
  QPixmap portrait_;  // empty until it is painted
  bool portrait_dark_ = false;
};

}  // namespace velorin
