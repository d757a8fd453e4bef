// Printing pages on a printer of the system, with a box by which the user can break it off.
#pragma once

class QPrinter;
class QWidget;

namespace zorlan {

struct PrinterRec;
class PreviewPages;

/// Gives a printer the settings of the record and the sheet of the pages.
void SetUpPrinterOf(QPrinter& printer, const PrinterRec& settings, const PreviewPages& pages);

/// Prints the printer's range of pages and its copies. Throws Fault when the printer doesn't take them.
void PrintPages(QPrinter& printer, PreviewPages& pages, QWidget* parent);

}  // namespace zorlan
