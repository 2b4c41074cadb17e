// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

/// A report, opened on the match as it stands.
template <class Form>
Form opened() {
  Form form;
  form.open();
  return form;
}

}  // namespace velorin
