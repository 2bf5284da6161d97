#include "model/CommandBody.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace palomet {

namespace {

bool isWritable(const QJsonValue &value) {
    switch (value.type()) {
    case QJsonValue::Null:
    case QJsonValue::Bool:
        return true;
    case QJsonValue::String:
        return value.toString().isValidUtf16();
    case QJsonValue::Double:
        return std::isfinite(value.toDouble());
    case QJsonValue::Array: {
        const auto array = value.toArray();
        return std::all_of(array.begin(), array.end(), isWritable);
    }
    case QJsonValue::Object: {
        const auto object = value.toObject();
        return std::all_of(object.begin(), object.end(), isWritable);
    }
    case QJsonValue::Undefined:
        return false;
    }
    Q_UNREACHABLE();
}

} // namespace

QByteArray commandBody(const QString &key, const QJsonValue &value) {
    if (!isWritable(value))
        return {};
    return QJsonDocument(QJsonObject{{key, value}}).toJson(QJsonDocument::Compact);
}

} // namespace palomet
