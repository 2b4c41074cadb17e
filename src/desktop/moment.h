// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QString>

class QWidget;

namespace velorin {

/// What a moment is for.
enum class MomentKind { champions, hundred, five_wickets, last_ball_win };

/// Whether things may move over `widget`: neither its style nor the user's desktop has asked for less of it.
bool may_move(const QWidget& widget);

/// Shows a quiet banner with `words` over the upper part of a widget for a second and a half. It takes no input and no
/// focus, and goes by itself; another one over the same widget takes its place. Nothing is shown where the user has
/// turned moments off in the settings, or where nothing may move. Returns at once. With a `place`, a widget in `over`,
/// it stands in the middle of that one while that one is seen.
void celebrate(QWidget& over, MomentKind kind, const QString& words, QWidget* place = nullptr);
/// The sign of a moment on a disc of so many pixels, for a message that stops the game and is the moment itself. Empty
/// where the user has turned moments off.
QPixmap sign_of(MomentKind kind, int side, qreal scale);
/// Takes away what is still shown over a widget.
void end_moment(QWidget& over);

}  // namespace velorin
