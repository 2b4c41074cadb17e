// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>

class QWidget;

// What the terms of cricket and of the game's model mean, as they stand in headings and captions.

namespace velorin {

struct Term {
  const char* shown;    ///< as it stands in the windows, without a colon at its end
  const char* meaning;  ///< one plain sentence
};

/// All terms, in no order.
std::span<const Term> all_terms();

/// What a heading or a caption means; empty for a plain word. Blanks around it, a colon at its end and the mark of a
/// mnemonic are left out of account.
QString meaning_of(const QString& shown);

/// Gives the meaning of a term to a widget as its tooltip, and with that as its description for screen readers. One
/// that has another tooltip keeps it.
void explain(QWidget& widget, const QString& shown);

}  // namespace velorin
