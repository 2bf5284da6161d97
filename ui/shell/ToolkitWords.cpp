#include "ui/shell/ToolkitWords.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace palomet {

using namespace Qt::StringLiterals;

void translateToolkit(QCoreApplication &application, const QString &language) {
    auto words = std::make_unique<QTranslator>(&application);
    const auto folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QLocale(language), u"qtbase"_s, u"_"_s, folder))
        QCoreApplication::installTranslator(words.release());
}

} // namespace palomet
