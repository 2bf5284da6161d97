#include "ui/shell/ToolkitWords.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace palomet {

void translateToolkit(QCoreApplication &application, const QString &language) {
    auto words = std::make_unique<QTranslator>(&application);
    const auto folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (words->load(QLocale(language), QStringLiteral("qtbase"), QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(words.release());
}

} // namespace palomet
