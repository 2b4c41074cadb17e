// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QChar>
#include <QString>
#include <exception>
#include <string>
#include <string_view>

// The core's texts, single bytes of Windows-1252, as the toolkit's, and back.

namespace velorin {

/// A text of the core.
QString shown(std::string_view bytes);

/// A caption of the core, in which a doubled ampersand stands for one.
QString shown_caption(std::string_view bytes);

/// `text` as the text of a button: ampersands doubled, and the first `mnemonic` of it, in either case, marked. Without
/// a mnemonic, or for a letter that is not in the text, nothing is marked.
QString button_text(const QString& text, QChar mnemonic = {});

/// A text as a file may be called: "-" for every character that stands for something else on some system.
QString file_name(const QString& text);

/// What an error says. A name in it that Windows-1252 has no room for stands there in UTF-8.
QString shown_error(const std::exception& error);

/// The way back. A character without a place in Windows-1252 becomes "?".
std::string core_text(const QString& text);

}  // namespace velorin
