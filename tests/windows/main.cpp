// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QTemporaryDir>

#include "desktop/preferences.h"
#include "desktop/theme.h"

/// Windows without a screen, preferences in a folder of this run. VELORIN_APPEARANCE chooses "dark" or "contrast".
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleMock(&argc, argv);
  const QTemporaryDir folder;
  // The toolkit would make a folder of its own, and leave it.
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", folder.path().toUtf8());
  QApplication application(argc, argv);  // writes the preferences when it goes: before the folder does
  velorin::preferences::use_file(folder.filePath(QStringLiteral("preferences.ini")));
  // Threads beside every console would only slow the others down; the tests of the forecast turn it on.
  velorin::preferences::set_forecast(false);
  const QString look = qEnvironmentVariable("VELORIN_APPEARANCE");
  velorin::apply_theme(look == "dark"       ? velorin::Appearance::dark
                       : look == "contrast" ? velorin::Appearance::high_contrast
                                            : velorin::Appearance::light);
  return RUN_ALL_TESTS();
}
