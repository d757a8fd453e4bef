#include "desktop/icons.h"

#include <QSize>
#include <QString>

namespace zorlan {
namespace {

QString Drawing(const char* name) {
  return QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name));
}

}  // namespace

QIcon ProgramIcon() {
  return QIcon(Drawing("zorlan"));
}

QIcon DriveIcon() {
  return QIcon(Drawing("drive"));
}

QIcon FolderIcon() {
  QIcon icon(Drawing("folder"));
  icon.addFile(Drawing("folder-open"), QSize(), QIcon::Normal, QIcon::On);
  return icon;
}

QIcon ProjectIcon() {
  return QIcon(Drawing("project"));
}

QIcon LeafIcon() {
  QIcon icon(Drawing("leaf1"));
  icon.addFile(Drawing("leaf2"), QSize(), QIcon::Selected);
  return icon;
}

}  // namespace zorlan
