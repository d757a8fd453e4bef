// The dialog that asks where a file is to be written.
#pragma once

#include <QString>

class QWidget;

namespace zorlan {

/// Asks for the path of a new file; empty: the user has thought better of it. `ending` (".dxf") comes behind
/// a name that hasn't it, unless all files are shown and the name has an ending of its own. A file that
/// stands at the very path that comes out isn't replaced without a question.
QString AskSaveFile(QWidget* parent, const QString& caption, const QString& proposed, const QString& filter,
                    const QString& ending);

}  // namespace zorlan
