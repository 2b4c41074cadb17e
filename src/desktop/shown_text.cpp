// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/shown_text.h"

#include <QList>
#include <QRegularExpression>

#include "model/code_page.h"

namespace velorin {

QString shown(std::string_view bytes) { return QString::fromStdString(to_utf8(bytes)); }

QString shown_caption(std::string_view bytes) {
  return shown(bytes).replace(QStringLiteral("&&"), QStringLiteral("&"));
}

QString button_text(const QString& text, QChar mnemonic) {
  const qsizetype marked = mnemonic.isNull() ? -1 : text.indexOf(mnemonic, 0, Qt::CaseInsensitive);
  QString result;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (i == marked || text[i] == QLatin1Char('&')) result += QLatin1Char('&');
    result += text[i];
  }
  return result;
}

QString file_name(const QString& text) {
  static const QRegularExpression unfit(QStringLiteral("[\\x00-\\x1f/\\\\:*?\"<>|]"));
  return QString(text).replace(unfit, QStringLiteral("-"));
}

QString shown_error(const std::exception& error) {
  const QByteArray bytes(error.what());
  const QString text = QString::fromUtf8(bytes);
  return text.toUtf8() == bytes ? text : shown(bytes.toStdString());
}

std::string core_text(const QString& text) {
  std::string bytes;
  for (const uint point : text.toUcs4()) {
    const QString one = QString::fromUcs4(reinterpret_cast<const char32_t*>(&point), 1);
    bytes += from_utf8(one.toStdString()).value_or("?");
  }
  return bytes;
}

}  // namespace velorin
