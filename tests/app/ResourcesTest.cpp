#include "app/Resources.h"

#include "tests/support/Processes.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::EnvironmentVariable;

namespace {

class ResourceFolderTest : public ::testing::Test {
protected:
    ResourceFolderTest() { QDir(prefix.path()).mkdir(u"bin"_s); }

    QString make(const QString &folder) {
        const auto path = prefix.filePath(folder);
        QDir().mkpath(path);
        return path;
    }

    std::optional<QString> found() const { return resourceFolder(prefix.filePath(u"bin"_s)); }

    QTemporaryDir prefix;
    const EnvironmentVariable unset{"PALOMET_RESOURCES"};
};

} // namespace

TEST_F(ResourceFolderTest, IsTheOneThatTheEnvironmentNames) {
    make(u"bin/resources"_s);
    const auto named = make(u"elsewhere"_s);
    const EnvironmentVariable variable("PALOMET_RESOURCES", named.toUtf8() + '/');
    EXPECT_EQ(found(), named);
}

TEST_F(ResourceFolderTest, IsNoOtherWhenTheOneNamedIsMissing) {
    make(u"bin/resources"_s);
    const EnvironmentVariable variable("PALOMET_RESOURCES", "/nowhere");
    EXPECT_EQ(found(), std::nullopt);
}

TEST_F(ResourceFolderTest, LiesBesideTheExecutable) {
    make(u"share/palomet"_s);
    const auto beside = make(u"bin/resources"_s);
    EXPECT_EQ(found(), beside);
    const EnvironmentVariable variable("PALOMET_RESOURCES", "");
    EXPECT_EQ(found(), beside);
}

TEST_F(ResourceFolderTest, LiesBelowThePrefixOfAnInstalledProgram) {
    EXPECT_EQ(found(), std::nullopt);
    const auto installed = make(u"share/palomet"_s);
    EXPECT_EQ(found(), installed);
}
