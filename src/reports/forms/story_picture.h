// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSize>
#include <QString>
#include <functional>
#include <vector>

#include "desktop/table.h"

class QPainter;

// Views of a match as pictures in files.

namespace velorin {

/// What paints a picture.
using PaintStory = std::function<void(QPainter& painter)>;

/// Writes a picture of this size, SVG or PNG by the ending of `path`. False if that fails.
bool save_story_picture(const QString& path, const QString& title, QSize size, const PaintStory& paint);

/// Tables, one below the other, with their names and headings, in the colours of the look.
bool save_story_picture(const QString& path, const std::vector<Table>& tables);

}  // namespace velorin
