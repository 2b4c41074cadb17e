// SPDX-License-Identifier: GPL-3.0-or-later
// The toolkit's own dialogs under the style sheet: what they paint themselves has to stay whole.
#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFileDialog>
#include <QPainter>
#include <QSpinBox>
#include <QStyleFactory>
#include <QStyleOptionSpinBox>
#include <QTemporaryDir>
#include <QToolButton>
#include <memory>

#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// How many pixels of a part of a picture differ from its corner.
int drawn_pixels(const QImage& picture, const QRect& part) {
  int count = 0;
  for (int y = part.top(); y <= part.bottom(); ++y) {
    for (int x = part.left(); x <= part.right(); ++x) {
      if (picture.valid(x, y) && picture.pixel(x, y) != picture.pixel(part.topLeft())) ++count;
    }
  }
  return count;
}

TEST(ToolkitDialogs, TheButtonsOfTheFileDialogShowTheirIcons) {
  const QTemporaryDir folder;
  QFileDialog dialog(nullptr, QStringLiteral("Save"), folder.path());
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.show();
  take_picture(dialog, "file_dialog");
  int seen = 0;
  for (QToolButton* button : dialog.findChildren<QToolButton*>()) {
    if (!button->isVisible() || button->icon().isNull()) continue;
    ++seen;
    const QImage picture = button->grab().toImage();
    const QSize icon = button->iconSize();
    QRect middle(QPoint(), icon);
    middle.moveCenter(button->rect().center());
    // A dot has a few pixels; the smallest of the icons has a good part of its square.
    const double scale = picture.devicePixelRatio();
    const QRect part(middle.topLeft() * scale, middle.size() * scale);
    EXPECT_GT(drawn_pixels(picture, part), icon.width() * icon.height() * scale * scale / 8)
        << button->objectName().toStdString();
  }
  EXPECT_GE(seen, 4);
}

TEST(ToolkitDialogs, TheNumbersOfTheColourDialogHaveTheirArrows) {
  const std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("Fusion")));
  QColorDialog dialog(QColor(20, 120, 220));
  dialog.setOption(QColorDialog::DontUseNativeDialog);
  dialog.show();
  take_picture(dialog, "color_dialog");
  int seen = 0;
  for (QSpinBox* box : dialog.findChildren<QSpinBox*>()) {
    if (!box->isVisible()) continue;
    ++seen;
    QStyleOptionSpinBox option;
    option.initFrom(box);
    option.subControls = QStyle::SC_All;
    option.frame = box->hasFrame();
    option.buttonSymbols = box->buttonSymbols();
    option.stepEnabled = QAbstractSpinBox::StepUpEnabled | QAbstractSpinBox::StepDownEnabled;
    const QImage picture = box->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QImage drawn = picture;
    QPainter painter(&drawn);
    plain->drawComplexControl(QStyle::CC_SpinBox, &option, &painter, box);
    painter.end();
    const double scale = picture.devicePixelRatio();
    for (const auto part : {QStyle::SC_SpinBoxUp, QStyle::SC_SpinBoxDown}) {
      const QRect arrow = plain->subControlRect(QStyle::CC_SpinBox, &option, part, box).adjusted(2, 2, -2, -2);
      const QRect pixels(arrow.topLeft() * scale, arrow.size() * scale);
      EXPECT_EQ(picture.copy(pixels), drawn.copy(pixels)) << "not as the style draws it";
      EXPECT_GT(drawn_pixels(picture, pixels), 4);
    }
    const QLineEdit* text = box->findChild<QLineEdit*>();
    EXPECT_GE(text->height(), text->fontMetrics().height());
    EXPECT_GE(text->contentsRect().width(), text->fontMetrics().horizontalAdvance(QStringLiteral("000")));
  }
  EXPECT_EQ(seen, 6);
}

}  // namespace
}  // namespace velorin::testing
