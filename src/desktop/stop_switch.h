// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QCheckBox;
class QString;
class QWidget;

namespace velorin {

/// The check box `play_without_stopping` of a competition's form, "Play computer matches without stopping": shows what
/// the user has chosen on the form of this name and keeps it as it is changed. Its mnemonic is W.
QCheckBox* new_stop_switch(const QString& form, QWidget* parent = nullptr);

}  // namespace velorin
