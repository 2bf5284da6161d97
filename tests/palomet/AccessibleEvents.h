#pragma once

#include "tests/palomet/AccessibleTree.h"

#include <QDBusMessage>
#include <QObject>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The texts that the program has a screen reader read out, from now on: the names of the notifications that begin to
/// show.
class AccessibleEvents final : public QObject {
    Q_OBJECT

public:
    explicit AccessibleEvents(AccessibleTree &tree)
        : m_tree(tree)
        , m_bus(tree.bus()) {
        const auto registry = u"org.a11y.atspi.Registry"_s;
        auto listen =
            QDBusMessage::createMethodCall(registry, u"/org/a11y/atspi/registry"_s, registry, u"RegisterEvent"_s);
        listen.setArguments({u"object:state-changed:showing"_s, QStringList(), QString()});
        m_bus.call(listen);
        m_bus.connect(QString(), QString(), u"org.a11y.atspi.Event.Object"_s, u"StateChanged"_s, this,
                      SLOT(stateChanged(QDBusMessage)));
    }

    [[nodiscard]] const QStringList &readOut() const { return m_readOut; }

private Q_SLOTS:
    void stateChanged(const QDBusMessage &message) {
        const AccessibleTree::Node source{message.service(), message.path()};
        const auto arguments = message.arguments();
        if (arguments.value(0) == u"showing"_s && arguments.value(1) == 1 && m_tree.role(source) == u"notification"_s)
            m_readOut.append(m_tree.name(source));
    }

private:
    AccessibleTree &m_tree;
    QDBusConnection m_bus;
    QStringList m_readOut;
};

} // namespace palomet::test
