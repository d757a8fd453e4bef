#include "desktop/number_box.h"

#include <QCoreApplication>
#include <QStatusTipEvent>
#include <QValidator>

#include "forms/typing.h"
#include "render/qt_text.h"

namespace zorlan {
namespace {

/// Keeps what the mask takes of every text that is to stand in the box; says what it takes when it drops
/// something.
class MaskFilter : public QValidator {
 public:
  MaskFilter(std::string_view mask, NumberBox* box) : QValidator(box), mask_(mask), box_(box) {}

  State validate(QString& text, int& caret) const override {
    const Typed front = FilterTyped(mask_, FromQt(text.left(caret)));
    const Typed back = FilterTyped(mask_, FromQt(text.mid(caret)));
    const QString kept = ToQt(front.text);
    caret = static_cast<int>(kept.size());
    text = kept + ToQt(back.text);
    if (front.refused || back.refused) {
      QStatusTipEvent hint(ToQt(MaskHint(mask_)));
      QCoreApplication::sendEvent(box_, &hint);
    }
    return Acceptable;
  }

 private:
  std::string_view mask_;
  NumberBox* box_;
};

}  // namespace

NumberBox::NumberBox(std::string_view mask, QWidget* parent) : QLineEdit(parent) {
  setValidator(new MaskFilter(mask, this));
}

}  // namespace zorlan
