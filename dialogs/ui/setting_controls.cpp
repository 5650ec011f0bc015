#include "dialogs/ui/setting_controls.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>

#include "core/ui/wheel_guard.h"
#include "dialogs/setting_values.h"
#include "platform/one_line.h"

namespace vantrace {

void writeField(QLineEdit& field, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (field.text() != shown) field.setText(shown);
}

void readField(const QLineEdit& field, std::string& text) {
    const std::string typed = oneLine(field.text().toStdString());
    if (QString::fromStdString(typed) != QString::fromStdString(text)) text = typed;
}

void nameWithText(QWidget& control, const QString& heading, const std::string& text) {
    const QString name = heading + QStringLiteral(": ") + QString::fromStdString(text);
    if (control.accessibleName() != name) control.setAccessibleName(name);
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
