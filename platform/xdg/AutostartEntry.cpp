#include "platform/xdg/AutostartEntry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// Longer than any entry; what is behind it is not read.
constexpr qint64 maximumBytes = qint64{64} * 1024;

/// A value of type string: the backslash begins an escape in all of them.
QString stringValue(QString text) {
    return text.replace(u'\\', u"\\\\"_s);
}

/// One argument of a command line: in quotes, with what is special inside of them escaped, and without field codes.
QString quoted(const QString &argument) {
    QString text = u"\""_s;
    for (const auto letter : argument) {
        if (u"\"`$\\"_s.contains(letter))
            text += u'\\';
        else if (letter == u'%')
            text += u'%';
        text += letter;
    }
    return text + u'"';
}

} // namespace

AutostartEntry::AutostartEntry(const QString &configuration, QString program)
    : m_path(configuration + u"/autostart/org.palomet.Palomet.desktop"_s)
    , m_program(std::move(program)) {}

QByteArray AutostartEntry::entryFor(const QString &program) {
    // A program that was removed meanwhile is passed over in silence: that is what TryExec is for.
    return u"[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Palomet\n"
           "Comment=Talk to your local agent\n"
           "Comment[pt_BR]=Converse com o seu agente local\n"
           "Icon=org.palomet.Palomet\n"
           "TryExec=%1\n"
           "Exec=%2\n"
           "Terminal=false\n"
           "X-GNOME-Autostart-enabled=true\n"_s.arg(stringValue(program), stringValue(quoted(program)))
               .toUtf8();
}

Result<bool> AutostartEntry::isOn() const {
    QFile file(m_path);
    if (!file.exists())
        return false;
    if (!file.open(QFile::ReadOnly))
        return Failure{u"cannot read %1: %2"_s.arg(m_path, file.errorString())};
    bool isOurs = false;
    for (const auto &line : file.read(maximumBytes).split('\n')) {
        const auto text = line.trimmed();
        if (text.startsWith('['))
            isOurs = text == "[Desktop Entry]";
        else if (isOurs && (text == "Hidden=true" || text == "X-GNOME-Autostart-enabled=false"))
            return false;
    }
    return true;
}

std::optional<Failure> AutostartEntry::turnOn() {
    QDir().mkpath(QFileInfo(m_path).path());
    // Replaced as a whole: a desktop never reads half an entry.
    QSaveFile file(m_path);
    const auto entry = entryFor(m_program);
    if (file.open(QFile::WriteOnly) && file.write(entry) == entry.size() && file.commit())
        return std::nullopt;
    return Failure{u"cannot write %1: %2"_s.arg(m_path, file.errorString())};
}

std::optional<Failure> AutostartEntry::turnOff() {
    QFile file(m_path);
    if (file.remove() || !QFileInfo(m_path).exists())
        return std::nullopt;
    return Failure{u"cannot remove %1: %2"_s.arg(m_path, file.errorString())};
}

} // namespace palomet
