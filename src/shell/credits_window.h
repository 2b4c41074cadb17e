// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "desktop/form.h"

class QUrl;

namespace velorin {

/// The credits, with links to mail and to the web.
class CreditsWindow : public Form {
  Q_OBJECT

 public:
  /// `open_link` opens an address; left out, the desktop does. What it cannot open it is left to report.
  explicit CreditsWindow(std::function<void(const QUrl&)> open_link = {}, QWidget* parent = front_window());

 private:
  std::function<void(const QUrl&)> open_link_;
};

}  // namespace velorin
