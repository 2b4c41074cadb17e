// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCheckBox;
class QWidget;

namespace velorin {

/// The check box `play_without_stopping`, "Play computer matches without stopping": shows the user's preference of that
/// name and keeps it as it is changed. Its mnemonic is W.
QCheckBox* new_stop_switch(QWidget* parent = nullptr);

}  // namespace velorin
