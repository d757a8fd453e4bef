#include "desktop/own_characters.h"

#include <QLineEdit>
#include <QValidator>

#include "base/cp932.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

/// Accepts everything, in the characters of the code page: one for one, so the cursor stays.
class OwnCharacters : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& text, int&) const override {
    text = ToQt(WithOwnCharacters(FromQt(text)));
    return Acceptable;
  }
};

}  // namespace

void KeepOwnCharacters(QLineEdit& box) {
  box.setValidator(new OwnCharacters(&box));
}

}  // namespace zorlan
