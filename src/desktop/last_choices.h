// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

class Form;

/// Keeps in the user's settings what stands in a form's lists, boxes, options and fields, by their names.
void keep_choices(const Form& form);

/// Adds "As Last Time" at the left of the form's foot: what was kept of this form last is chosen again, as far as its
/// lists still offer it. Nothing is added where nothing was kept. Requires the controls to stand in the form already.
void add_as_last_time(Form& form);

}  // namespace velorin
