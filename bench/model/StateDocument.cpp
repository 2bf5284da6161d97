#include "bench/model/StateDocument.h"

#include "tests/support/Fixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace palomet::bench {

QByteArray stateDocument(int rows) {
    auto state = QJsonDocument::fromJson(test::fixture("state/full.json")).object();
    auto conversation = state[QStringLiteral("conversation")].toObject();
    QJsonArray all;
    for (int i = 0; i < rows; ++i) {
        all.append(QJsonObject{
            {QStringLiteral("role"), i % 2 == 0 ? QStringLiteral("user") : QStringLiteral("assistant")},
            {QStringLiteral("text"),
             QStringLiteral("O \u00faltimo \"deploy\" passou h\u00e1 %1 minutos, sem erro nenhum, "
                            "e o site\nj\u00e1 est\u00e1 no ar com o formul\u00e1rio novo.")
                 .arg(i)},
            {QStringLiteral("at"), 1'731'700'000'000.0 + 1000.25 * i},
            {QStringLiteral("durationMs"), 1840.5 + i},
            {QStringLiteral("isOpen"), false},
        });
    }
    conversation[QStringLiteral("rows")] = all;
    state[QStringLiteral("conversation")] = conversation;
    return QJsonDocument(state).toJson(QJsonDocument::Compact);
}

} // namespace palomet::bench
