// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QString>
#include <QWidget>
#include <filesystem>
#include <optional>

namespace velorin {

/// A player's photo, or the words that stand in its place. Keeps the photo last read, so that showing the same man
/// again reads no file.
class PhotoView : public QWidget {
  Q_OBJECT

 public:
  /// `size`: width and height in pixels.
  PhotoView(const QString& name, QSize size, QWidget* parent = nullptr);

  /// Shows the photo of `player`, read from `file`; without a file, or one that is no picture of the
  /// format that its ending names, or has more than 32 MiB, "No Pic Available", and the cause as a hint.
  void show_photo(const QString& player, const std::optional<std::filesystem::path>& file);

  /// Another width and height in pixels.
  void set_size(QSize size);

  bool has_photo() const { return !photo_.isNull(); }
  QSize sizeHint() const override { return size_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize size_;
  QString file_;
  QPixmap photo_;
};

}  // namespace velorin
