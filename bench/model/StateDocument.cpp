#include "bench/model/StateDocument.h"

#include "tests/support/Fixture.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace palomet::bench {

using namespace Qt::StringLiterals;

QByteArray stateDocument(int rows) {
    auto state = QJsonDocument::fromJson(test::fixture("state/full.json")).object();
    auto conversation = state[u"conversation"_s].toObject();
    QJsonArray all;
    for (int i = 0; i < rows; ++i) {
        all.append(QJsonObject{
            {u"role"_s, i % 2 == 0 ? u"user"_s : u"assistant"_s},
            {u"text"_s, u"O \u00faltimo \"deploy\" passou h\u00e1 %1 minutos, sem erro nenhum, "
                        "e o site\nj\u00e1 est\u00e1 no ar com o formul\u00e1rio novo."_s.arg(i)},
            {u"at"_s, 1'731'700'000'000.0 + 1000.25 * i},
            {u"durationMs"_s, 1840.5 + i},
            {u"isOpen"_s, false},
        });
    }
    conversation[u"rows"_s] = all;
    state[u"conversation"_s] = conversation;
    return QJsonDocument(state).toJson(QJsonDocument::Compact);
}

} // namespace palomet::bench
