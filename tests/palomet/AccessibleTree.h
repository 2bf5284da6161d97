#pragma once

#include "tests/support/PrivateBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

#include <optional>
#include <vector>

namespace palomet::test {

/// What a screen reader sees of the program, and can do with it: its tree on the accessibility bus of that session.
class AccessibleTree {
public:
    struct Node {
        QString service;
        QString path;
    };

    /// Starts the accessibility bus of that session, in that environment; the program is started after it.
    AccessibleTree(PrivateBus &bus, const QProcessEnvironment &environment);
    ~AccessibleTree();

    /// The node of that role ("push button") and name, wherever it is in the window, scrolled away or not; waits for
    /// it.
    [[nodiscard]] std::optional<Node> find(const QString &role, const QString &name);
    /// All nodes of that role, in reading order.
    [[nodiscard]] std::vector<Node> all(const QString &role);

    [[nodiscard]] QString name(const Node &node) { return property(node, "Name"); }
    [[nodiscard]] QString description(const Node &node) { return property(node, "Description"); }
    [[nodiscard]] bool isChecked(const Node &node);
    [[nodiscard]] bool isSelected(const Node &node);
    /// Does what pressing it does.
    bool press(const Node &node);
    /// Gives it the keyboard's focus.
    bool focus(const Node &node);

private:
    [[nodiscard]] QDBusMessage call(const Node &node, const char *interface, const char *method,
                                    const QVariantList &arguments = {});
    [[nodiscard]] QString property(const Node &node, const char *name);
    [[nodiscard]] QString role(const Node &node);
    [[nodiscard]] bool hasState(const Node &node, int state);
    [[nodiscard]] std::vector<Node> children(const Node &node);
    void collect(const Node &from, const QString &role, std::vector<Node> &found);

    QDBusConnection accessibilityBus();

    PrivateBus &m_session;
    QProcess m_launcher;
    QDBusConnection m_bus;
};

} // namespace palomet::test
