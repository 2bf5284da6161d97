#include "bench/audio/echo/Recogniser.h"

#include "bench/audio/echo/Speech.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>

namespace palomet::bench {
namespace {

const QString model = QStringLiteral("/usr/share/pocketsphinx/model/en-us");
const QString program = QStringLiteral("pocketsphinx_batch");

bool write(const QString &path, const QByteArray &data) {
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(data) == data.size();
}

QByteArray grammar() {
    QStringList sentences;
    for (const auto &sentence : userSentences())
        sentences.append(sentence);
    return "#JSGF V1.0;\ngrammar user;\npublic <said> = (" + sentences.join(QStringLiteral(" | ")).toUtf8() + ");\n";
}

QByteArray samplesOf(const Signal &signal) {
    QByteArray data;
    data.reserve(static_cast<qsizetype>(signal.size()) * 2);
    for (const float sample : signal) {
        const auto value = static_cast<std::int16_t>(std::clamp(sample, -1.0F, 1.0F) * 32767);
        data.append(reinterpret_cast<const char *>(&value), sizeof(value));
    }
    return data;
}

/// Fewest words to change, put in and leave out. (V. I. Levenshtein, 1965.)
std::size_t editDistance(const QStringList &said, const QStringList &heard) {
    std::vector<std::size_t> row{0};
    while (row.size() <= static_cast<std::size_t>(heard.size()))
        row.push_back(row.size());
    for (qsizetype i = 0; i < said.size(); ++i) {
        auto diagonal = row[0]++;
        for (qsizetype j = 0; j < heard.size(); ++j) {
            const auto at = static_cast<std::size_t>(j) + 1;
            const auto changed = diagonal + (said[i] == heard[j] ? 0 : 1);
            diagonal = row[at];
            row[at] = std::min({changed, row[at] + 1, row[at - 1] + 1});
        }
    }
    return row.back();
}

} // namespace

bool isRecogniserInstalled() {
    return !QStandardPaths::findExecutable(program).isEmpty() && QFileInfo::exists(model);
}

Result<std::vector<WordCount>> countWords(const std::vector<Utterance> &utterances) {
    const QTemporaryDir folder;
    QByteArray names;
    bool isWritten = folder.isValid() && write(folder.filePath(QStringLiteral("grammar")), grammar());
    for (std::size_t i = 0; i < utterances.size(); ++i) {
        const auto name = QString::number(i);
        names += name.toUtf8() + '\n';
        isWritten &= write(folder.filePath(name + QStringLiteral(".raw")), samplesOf(utterances[i].samples));
    }
    isWritten &= write(folder.filePath(QStringLiteral("names")), names);
    if (!isWritten)
        return Failure{QStringLiteral("cannot write to a temporary folder")};

    QProcess recogniser;
    recogniser.setStandardErrorFile(QProcess::nullDevice());
    recogniser.start(program,
                     {QStringLiteral("-hmm"), model + QStringLiteral("/en-us"), QStringLiteral("-dict"),
                      model + QStringLiteral("/cmudict-en-us.dict"), QStringLiteral("-jsgf"),
                      folder.filePath(QStringLiteral("grammar")), QStringLiteral("-ctl"),
                      folder.filePath(QStringLiteral("names")), QStringLiteral("-cepdir"), folder.path(),
                      QStringLiteral("-cepext"), QStringLiteral(".raw"), QStringLiteral("-adcin"),
                      QStringLiteral("yes"), QStringLiteral("-hyp"), folder.filePath(QStringLiteral("heard"))});
    if (!recogniser.waitForFinished(-1) || recogniser.exitCode() != 0)
        return Failure{QStringLiteral("pocketsphinx: ") + recogniser.errorString()};
    QFile heardFile(folder.filePath(QStringLiteral("heard")));
    if (!heardFile.open(QFile::ReadOnly))
        return Failure{heardFile.errorString()};

    // A line is what was heard, then the name and the score in parentheses.
    static const QRegularExpression tail(QStringLiteral(R"(\s*\(\d+ -?\d+\)\s*$)"));
    std::vector<WordCount> counts;
    for (const auto &utterance : utterances) {
        const auto line = QString::fromUtf8(heardFile.readLine()).remove(tail);
        const auto heard = line.split(u' ', Qt::SkipEmptyParts);
        const auto said = utterance.sentence.split(u' ', Qt::SkipEmptyParts);
        counts.push_back({static_cast<int>(said.size()), static_cast<int>(editDistance(said, heard))});
    }
    return counts;
}

} // namespace palomet::bench
