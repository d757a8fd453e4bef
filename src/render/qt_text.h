// Texts across the border: UTF-8 below, QString above.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zorlan {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

/// The first two lines of a message beside each other.
inline QString OneLine(const QString& message) {
  return message.section(QLatin1Char('\n'), 0, 1).replace(QLatin1Char('\n'), QStringLiteral("　"));
}

}  // namespace zorlan
