// Fields, ticks and sliders between a form and its controls.
#pragma once

#include <string>

class QLineEdit;
class QSlider;
class QString;
class QWidget;

namespace vantrace {

struct SliderRange;

/// Leaves the cursor of a field where it is, unless the text is another one.
void writeField(QLineEdit& field, const std::string& text);
/// As one line. A text that the field can't show to the last byte stays what it is until the user changes it.
void readField(const QLineEdit& field, std::string& text);

/// What a screen reader calls a label: with the text that it shows, and with what that is.
void nameWithText(QWidget& control, const QString& heading, const std::string& text);

/// One step is a key, a big one is a click beside the handle. The wheel needs the focus. For each slider
/// once.
void setUpSlider(QSlider& slider, const SliderRange& range, int bigStep);
/// Nobody is told of it.
void writeSlider(QSlider& slider, int value);

}  // namespace vantrace
