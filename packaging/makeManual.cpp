// Prints the manual page, made of the same words as the help.

#include "command/CommandLine.h"

#include <QTextStream>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

/// A text as it stands: nothing in it is a request or an escape, and a hyphen is one that can be typed.
QString escaped(QString text) {
    text.replace(u'\\', u"\\e"_s).replace(u'-', u"\\-"_s);
    if (text.startsWith(u'.') || text.startsWith(u'\''))
        text.prepend(u"\\&"_s);
    return text;
}

QString capitalized(QString text) {
    text[0] = text[0].toUpper();
    return text;
}

QString page() {
    QString text = u".TH PALOMET 1 \"\" \"palomet " PALOMET_VERSION "\" \"User commands\"\n"
                   ".SH NAME\n"
                   "palomet \\- talk to a local agent from the tray\n"
                   ".SH SYNOPSIS\n"
                   ".B palomet\n"
                   ".RI [ option ]\n"
                   ".SH DESCRIPTION\n"
                   "Palomet lives in the tray and is the face, the ears and the voice of a local agent that you talk "
                   "to. Without an option it starts, or opens the window of the one that runs.\n"
                   ".SH OPTIONS\n"_s;
    for (const auto &group : CommandLine::options()) {
        text += u".SS "_s + escaped(group.title) + u'\n';
        for (const auto &option : group.options) {
            text += u".TP\n\\fB"_s + escaped(option.name) + u"\\fR"_s;
            if (!option.argument.isEmpty())
                text += u" \\fI"_s + escaped(option.argument) + u"\\fR"_s;
            text += u'\n' + escaped(capitalized(option.meaning)) + u".\n"_s;
        }
    }
    return text +
           u".SH EXIT STATUS\n"
           "0 when it is done, 1 when it could not be (with one line on standard error), 2 when an argument is wrong.\n"
           ".SH ENVIRONMENT\n"
           ".TP\n.B PALOMET_RESOURCES\n"
           "The resource folder, instead of the installed one.\n"
           ".TP\n.B LANGUAGE, LC_ALL, LC_MESSAGES, LANG\n"
           "The first that is set names the languages wanted.\n"
           ".TP\n.B XDG_CONFIG_HOME, XDG_STATE_HOME\n"
           "Where settings and the engine's data are kept.\n"
           ".SH FILES\n"
           ".TP\n.I ~/Library/Logs/loquent/palomet.log\n"
           "What the backend prints, and the program's own notes.\n"
           ".TP\n.I ~/.config/palomet/palomet.conf\n"
           "The two shortcuts and the window's place.\n"
           ".TP\n.I ~/.config/autostart/org.palomet.Palomet.desktop\n"
           "There when Palomet starts with the session.\n"
           ".TP\n.I ~/.local/state/palomet\n"
           "What the bundled engine keeps.\n"_s;
}

} // namespace

int main() {
    QTextStream(stdout) << page();
}
