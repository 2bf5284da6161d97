#include "command/CommandLine.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace palomet;

TEST(Completion, KnowsEveryOptionThatTheHelpNames) {
    QFile file(QStringLiteral(PALOMET_SOURCE_DIR "/packaging/bash-completion/palomet"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto completion = QString::fromUtf8(file.readAll());
    static const QRegularExpression option(QStringLiteral("--[a-z-]+"));
    for (auto found = option.globalMatch(CommandLine::help()); found.hasNext();) {
        const auto name = found.next().captured();
        EXPECT_TRUE(completion.contains(name)) << name.toStdString();
    }
}
