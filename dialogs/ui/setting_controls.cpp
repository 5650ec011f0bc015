#include "dialogs/ui/setting_controls.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>

#include "core/ui/wheel_guard.h"
#include "dialogs/setting_values.h"

namespace vantrace {

void writeField(QLineEdit& field, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (field.text() != shown) field.setText(shown);
}

void readField(const QLineEdit& field, std::string& text) {
    if (field.text() != QString::fromStdString(text)) text = field.text().toStdString();
}

void setUpSlider(QSlider& slider, const SliderRange& range, int bigStep) {
    const QSignalBlocker quiet(slider);
    slider.setRange(range.least, range.largest);
    slider.setSingleStep(1);
    slider.setPageStep(bigStep);
    new WheelGuard(slider);
}

void writeSlider(QSlider& slider, int value) {
    const QSignalBlocker quiet(slider);
    slider.setValue(value);
}

}  // namespace vantrace
