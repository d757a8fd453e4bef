// Printing pages on a printer of the system, with a box by which the user can break it off.
#pragma once

class QPrinter;
class QWidget;

namespace zorlan {

struct PrinterRec;
struct TextPages;

/// Gives a printer the settings of the record and the sheet of the pages.
void SetUpPrinterOf(QPrinter& printer, const PrinterRec& settings, const TextPages& pages);

/// Prints the printer's range of pages and its copies. Throws Fault when the printer doesn't take them.
void PrintTextPages(QPrinter& printer, const TextPages& pages, QWidget* parent);

}  // namespace zorlan
