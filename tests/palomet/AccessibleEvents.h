#pragma once

#include "tests/palomet/AccessibleTree.h"

#include <QDBusMessage>
#include <QObject>

namespace palomet::test {

/// The texts that the program has a screen reader read out, from now on: the names of the notifications that begin to
/// show.
class AccessibleEvents final : public QObject {
    Q_OBJECT

public:
    explicit AccessibleEvents(AccessibleTree &tree)
        : m_tree(tree)
        , m_bus(tree.bus()) {
        const auto registry = QStringLiteral("org.a11y.atspi.Registry");
        auto listen = QDBusMessage::createMethodCall(registry, QStringLiteral("/org/a11y/atspi/registry"), registry,
                                                     QStringLiteral("RegisterEvent"));
        listen.setArguments({QStringLiteral("object:state-changed:showing"), QStringList(), QString()});
        m_bus.call(listen);
        m_bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                      QStringLiteral("StateChanged"), this, SLOT(stateChanged(QDBusMessage)));
    }

    [[nodiscard]] const QStringList &readOut() const { return m_readOut; }

private Q_SLOTS:
    void stateChanged(const QDBusMessage &message) {
        const AccessibleTree::Node source{message.service(), message.path()};
        const auto arguments = message.arguments();
        if (arguments.value(0) == QStringLiteral("showing") && arguments.value(1) == 1 &&
            m_tree.role(source) == QStringLiteral("notification"))
            m_readOut.append(m_tree.name(source));
    }

private:
    AccessibleTree &m_tree;
    QDBusConnection m_bus;
    QStringList m_readOut;
};

} // namespace palomet::test
