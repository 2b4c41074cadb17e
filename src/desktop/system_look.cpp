// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/system_look.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QObject>
#include <QPalette>

#include "desktop/of_application.h"
#include "desktop/settings_watcher.h"

namespace velorin {

namespace {

struct SystemLook {
  bool dark_palette = false;
  SettingsWatcher watcher;
};

SystemLook& system_look() { return of_application<SystemLook>(); }

constexpr const char* appearance_settings = "org.freedesktop.appearance";

/// The desktop portal's word on a setting; -1 where there is none to ask.
int portal_value(const char* settings, const char* key) {
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return -1;
  QDBusMessage question = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  question << QString::fromLatin1(settings) << QString::fromLatin1(key);
  constexpr int patience = 200;  // milliseconds
  const QDBusMessage answer = QDBusConnection::sessionBus().call(question, QDBus::Block, patience);
  if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return -1;
  QVariant value = answer.arguments().constFirst();
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value.toInt();
}

}  // namespace

void note_system_palette() {
  const QPalette given = QGuiApplication::palette();
  system_look().dark_palette =
      given.color(QPalette::WindowText).lightness() > given.color(QPalette::Window).lightness();
}

bool system_is_dark() {
  const int preferred = portal_value(appearance_settings, "color-scheme");  // 1 dark, 2 light
  if (preferred == 1) return true;
  if (preferred == 2) return false;
  return system_look().dark_palette;
}

bool system_wants_contrast() { return portal_value(appearance_settings, "contrast") == 1; }

bool system_wants_stillness() {
  return portal_value(appearance_settings, "reduced-motion") == 1 ||
         portal_value("org.gnome.desktop.interface", "enable-animations") == 0;
}

void on_system_look_change(std::function<void()> act) {
  SettingsWatcher& watcher = system_look().watcher;
  watcher.changed = std::move(act);
  if (qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")) return;
  QDBusConnection::sessionBus().connect({}, QStringLiteral("/org/freedesktop/portal/desktop"),
                                        QStringLiteral("org.freedesktop.portal.Settings"),
                                        QStringLiteral("SettingChanged"), &watcher, SLOT(setting_changed(QString)));
}

}  // namespace velorin
