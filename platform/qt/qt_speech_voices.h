// The voices of an engine in the order in which the program counts them.
#pragma once

#include <QList>
#include <QString>
#include <QTextToSpeech>
#include <QVoice>

namespace vantrace {

/// Those that speak English, or where there are none those of the engine's present locale. Plain voices stand
/// before variants of them, those of the user's country before others, else they are sorted by name. Leaves
/// the engine's voice at any of them.
QList<QVoice> voicesInOrder(QTextToSpeech& engine);

/// Who stands behind a voice: the synthesizer that the engine speaks it with ("eSpeak NG"). Empty where the
/// engine doesn't tell.
QString makerOf(const QVoice& voice);

}  // namespace vantrace
