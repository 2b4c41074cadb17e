// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/photo_view.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

namespace velorin::testing {
namespace {

class PhotoViewTest : public ::testing::Test {
 protected:
  PhotoViewTest() : view(QStringLiteral("Image"), QSize(60, 80)) {}

  QString path(const char* name) const { return folder.filePath(QString::fromLatin1(name)); }
  void show(const char* name) { view.show_photo(QStringLiteral("A.Man"), path(name).toStdString()); }
  static QImage picture() {
    QImage image(20, 30, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
  }

  QTemporaryDir folder;
  PhotoView view;
};

TEST_F(PhotoViewTest, EveryEndingIsReadInItsFormat) {
  for (const char* name : {"a.png", "b.jpg", "c.BMP"}) {
    ASSERT_TRUE(picture().save(path(name)));
    show(name);
    EXPECT_TRUE(view.has_photo()) << name;
    EXPECT_EQ(view.toolTip(), "") << name;
  }
}

TEST_F(PhotoViewTest, AnotherFormatThanTheEndingNamesIsNone) {
  ASSERT_TRUE(picture().save(path("a.png")));
  ASSERT_TRUE(QFile::rename(path("a.png"), path("a.jpg")));
  show("a.jpg");
  EXPECT_FALSE(view.has_photo());
  EXPECT_EQ(view.accessibleName(), "No Pic Available");
  EXPECT_TRUE(view.toolTip().startsWith("a.jpg: ")) << view.toolTip().toStdString();
}

TEST_F(PhotoViewTest, APipeAndAHugeFileAreRefusedAtOnce) {
  ASSERT_EQ(::mkfifo(path("pipe.png").toLocal8Bit().constData(), 0666), 0);
  show("pipe.png");
  EXPECT_FALSE(view.has_photo());
  EXPECT_EQ(view.toolTip(), "pipe.png is no plain file");
  ASSERT_TRUE(picture().save(path("huge.bmp")));
  constexpr qint64 most = 32 << 20;
  ASSERT_TRUE(QFile::resize(path("huge.bmp"), most));
  show("huge.bmp");
  EXPECT_TRUE(view.has_photo());
  show("pipe.png");
  ASSERT_TRUE(QFile::resize(path("huge.bmp"), most + 1));
  show("huge.bmp");
  EXPECT_FALSE(view.has_photo());
  EXPECT_EQ(view.toolTip(), "huge.bmp has more than 32 MiB");
}

}  // namespace
}  // namespace velorin::testing
