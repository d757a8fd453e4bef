#include "render/fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>

namespace zorlan {
namespace {

constexpr auto kFixedFace = "IPAGothic";
constexpr auto kLabelFace = "IPAPGothic";

/// Where the package of the faces puts them. They are read from there by name: the system's own look-up may
/// answer another gothic under the same name once a second one is installed.
constexpr auto kFontFolder = "/usr/share/fonts/opentype/ipafont-gothic/";

QFont Face(const char* family) {
  QFont font(QString::fromLatin1(family));
  font.setKerning(false);
  return font;
}

}  // namespace

bool InstallFonts() {
  for (const char* const file : {"ipag.ttf", "ipagp.ttf"}) {
    const QString path = QString::fromLatin1(kFontFolder) + QString::fromLatin1(file);
    if (QFile::exists(path)) QFontDatabase::addApplicationFont(path);
  }
  const QString fixed = QString::fromLatin1(kFixedFace), label = QString::fromLatin1(kLabelFace);
  QFont::insertSubstitution(QStringLiteral("ＭＳ ゴシック"), fixed);
  QFont::insertSubstitution(QStringLiteral("MS Gothic"), fixed);
  QFont::insertSubstitution(QStringLiteral("ＭＳ Ｐゴシック"), label);
  QFont::insertSubstitution(QStringLiteral("MS PGothic"), label);
  const QFontMetricsF metrics(FixedFontOfHeight(1000));
  return metrics.horizontalAdvance(QStringLiteral("漢")) ==
         2 * metrics.horizontalAdvance(QStringLiteral("A"));
}

QFont FixedFont(double points) {
  QFont font = Face(kFixedFace);
  font.setPointSizeF(points);
  return font;
}

QFont LabelFont(double points) {
  QFont font = Face(kLabelFace);
  font.setPointSizeF(points);
  return font;
}

QFont FixedFontOfHeight(int height) {
  QFont font = Face(kFixedFace);
  font.setPixelSize(height);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace zorlan
