#include "platform/qt/qt_speech_voices.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>
#include <QLocale>
#include <QVariant>
#include <algorithm>
#include <tuple>

namespace vantrace {

namespace {

QList<QVoice> englishVoices(QTextToSpeech& engine) {
    QList<QVoice> voices;
    const QList<QLocale> locales = engine.availableLocales();
    for (const QLocale& locale : locales) {
        if (locale.language() != QLocale::English) continue;
        engine.setLocale(locale);
        if (engine.locale() == locale) voices += engine.availableVoices();
    }
    return voices;
}

/// eSpeak NG offers each voice in a hundred disguises, named with a '+'.
bool isVariant(const QVoice& voice) {
    return voice.name().contains(u'+');
}

/// The module of speech-dispatcher that has this voice. A voice tells it only to whoever stores it.
QString moduleOf(const QVoice& voice) {
    QByteArray stored;
    QDataStream writer(&stored, QIODevice::WriteOnly);
    writer << voice;
    QDataStream stream(stored);
    QString name;
    QLocale locale;
    qint32 gender = 0;
    qint32 age = 0;
    QVariant module;
    stream >> name >> locale >> gender >> age >> module;
    return stream.status() == QDataStream::Ok && name == voice.name() ? module.toString() : QString();
}

}  // namespace

QList<QVoice> voicesInOrder(QTextToSpeech& engine) {
    const QLocale::Territory home = QLocale::system().territory();
    QList<QVoice> voices = englishVoices(engine);
    if (voices.isEmpty()) {
        engine.setLocale(QLocale::system());
        voices = engine.availableVoices();
    }
    const auto place = [home](const QVoice& voice) {
        return std::tuple(isVariant(voice), voice.locale().territory() != home, voice.name());
    };
    std::stable_sort(voices.begin(), voices.end(),
                     [place](const QVoice& one, const QVoice& other) { return place(one) < place(other); });
    return voices;
}

QString makerOf(const QVoice& voice) {
    struct Synthesizer {
        const char* module;
        const char* name;
    };
    constexpr Synthesizer known[] = {
        {"espeak-ng", "eSpeak NG"}, {"espeak-ng-mbrola", "eSpeak NG and MBROLA"},
        {"espeak", "eSpeak"},       {"festival", "Festival"},
        {"flite", "Flite"},         {"pico", "SVOX Pico"},
        {"rhvoice", "RHVoice"},
    };
    const QString module = moduleOf(voice);
    for (const Synthesizer& synthesizer : known) {
        if (module == QLatin1String(synthesizer.module)) return QString::fromLatin1(synthesizer.name);
    }
    return module;
}

}  // namespace vantrace
