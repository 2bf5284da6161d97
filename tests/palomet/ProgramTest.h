#pragma once

#include "app/LogFile.h"
#include "tests/palomet/Desktop.h"
#include "tests/support/Farewell.h"
#include "tests/support/Processes.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <ostream>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The program itself, on a desktop of its own, with a backend process that does as $FAKE_BACKEND says.
class ProgramTest : public ::testing::Test {
protected:
    ProgramTest() {
        const QDir resources(desktop.home.filePath(u"resources"_s));
        resources.mkpath(u"engine"_s);
        EXPECT_TRUE(QFile::link(u"" PALOMET_FAKE_BACKEND ""_s, resources.filePath(u"bun"_s)));
        for (const auto &part : {u"Icons"_s, u"en.lproj"_s, u"pt-BR.lproj"_s})
            EXPECT_TRUE(QFile::link(u"" PALOMET_BINARY_DIR "/resources/"_s + part, resources.filePath(part)));
        environment = desktop.environment();
        setVariable("PALOMET_RESOURCES", resources.path());
    }
    ~ProgramTest() override {
        program.kill();
        program.waitForFinished();
    }

    void setVariable(const char *name, const QString &value) { environment.insert(QString::fromLatin1(name), value); }

    void start(const QStringList &arguments = {}) {
        program.setProcessEnvironment(environment);
        program.start(u"" PALOMET_EXECUTABLE ""_s, arguments);
        ASSERT_TRUE(program.waitForStarted());
    }

    /// A command's output, and how it ended.
    struct Outcome {
        int exitCode = -1;
        QByteArray output;
        QByteArray errors;

        bool operator==(const Outcome &) const = default;

        friend void PrintTo(const Outcome &outcome, std::ostream *stream) {
            *stream << outcome.exitCode << " output: " << outcome.output.toStdString()
                    << " errors: " << outcome.errors.toStdString();
        }
    };

    /// Runs the program once more, as a user's command beside the running one, to its end.
    [[nodiscard]] Outcome command(const QStringList &arguments, const QByteArray &input = {}) const {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(u"" PALOMET_EXECUTABLE ""_s, arguments);
        process.write(input);
        process.closeWriteChannel();
        if (!eventually([&] { return process.state() == QProcess::NotRunning; }) ||
            process.exitStatus() != QProcess::NormalExit)
            ADD_FAILURE() << "the command does not end by itself: " << qPrintable(arguments.join(u' '));
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    /// The backend's process, once it runs. By then the hot keys are taken too.
    qint64 awaitBackend() {
        if (!eventually([this] { return log().contains("\npronto "); }))
            ADD_FAILURE() << "no backend";
        return processesNamed("pronto", log()).value(0, -1);
    }

    bool awaitEnd() {
        return eventually([this] { return program.state() == QProcess::NotRunning; });
    }

    void sendSignal(int number) const { kill(static_cast<pid_t>(program.processId()), number); }

    QByteArray log() const { return contentOf(LogFile::pathBelow(desktop.home.path())); }

    QByteArrayList farewell() const { return farewellIn(log()); }

    /// Whether the backend ended when it was asked to, or had to be ended.
    enum class End { Polite, Forced };

    /// It has ended as it should: by itself, in order, with its backend.
    void expectOrderlyEnd(qint64 backend, End end = End::Polite) {
        ASSERT_TRUE(awaitEnd());
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0);
        EXPECT_TRUE(hasEnded(backend));
        QByteArrayList lines{"saindo: pedido de saída recebido",
                             "saindo: parando o processo de voz (pid " + QByteArray::number(backend) + ")"};
        if (end == End::Forced)
            lines.append("saindo: o processo de voz não parou em 2.0 s; encerrando à força");
        lines.append("saindo: pronto");
        EXPECT_EQ(farewell(), lines);
    }

    Desktop desktop;
    QProcessEnvironment environment;
    QProcess program;
};

} // namespace palomet::test
