#include "desktop/system_printers.h"

#include <QPageSize>
#include <QPrinterInfo>
#include <QStringList>

#include "render/qt_text.h"

namespace zorlan {
namespace {

/// A paper by the name that the settings have for it; "A4" for one that they don't know.
std::string PaperName(const QPageSize& size) {
  switch (size.id()) {
    case QPageSize::A1:
      return "A1";
    case QPageSize::A3:
      return "A3";
    case QPageSize::JisB4:
      return "B4";
    default:
      return "A4";
  }
}

}  // namespace

SystemPrinters LookAtPrinters() {
  SystemPrinters printers;
  for (const QString& name : QPrinterInfo::availablePrinterNames())
    printers.installed.push_back(FromQt(name));
  const QPrinterInfo current = QPrinterInfo::defaultPrinter();
  if (current.isNull()) return printers;
  printers.currentName = FromQt(current.printerName());
  printers.currentPaper = PaperName(current.defaultPageSize());
  return printers;
}

}  // namespace zorlan
