#include "command/CommandLine.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;

TEST(Completion, KnowsEveryOptionThatTheHelpNames) {
    QFile file(u"" PALOMET_SOURCE_DIR "/packaging/bash-completion/palomet"_s);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto completion = QString::fromUtf8(file.readAll());
    static const QRegularExpression option(u"--[a-z-]+"_s);
    for (auto found = option.globalMatch(CommandLine::help()); found.hasNext();) {
        const auto name = found.next().captured();
        EXPECT_TRUE(completion.contains(name)) << name.toStdString();
    }
}
