// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace velorin {

/// Hears from the desktop portal that one of its settings has changed.
class SettingsWatcher : public QObject {
  Q_OBJECT

 public:
  std::function<void()> changed;

 public slots:
  void setting_changed(const QString& group) {
    if (group == QLatin1String("org.freedesktop.appearance") && changed) changed();
  }
};

}  // namespace velorin
