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

/// The program as a screen reader sees it, and can use it: its tree on the accessibility bus of that session.
class AccessibleTree {
public:
    struct Node {
        QString service;
        QString path;
    };

    /// Starts the accessibility bus of that session, in that environment; the program is started after it.
    AccessibleTree(PrivateBus &bus, const QProcessEnvironment &environment);
    ~AccessibleTree();

    /// The node of that role ("push button") and name, scrolled away or not, but not one that is hidden; waits for it.
    [[nodiscard]] std::optional<Node> find(const QString &role, const QString &name);
    /// All nodes of that role, in the order of the tree, without those that are hidden.
    [[nodiscard]] std::vector<Node> all(const QString &role);

    [[nodiscard]] QString role(const Node &node);
    [[nodiscard]] QString name(const Node &node) { return property(node, "Name"); }
    [[nodiscard]] QString description(const Node &node) { return property(node, "Description"); }
    [[nodiscard]] bool isChecked(const Node &node);
    [[nodiscard]] bool isSelected(const Node &node);
    [[nodiscard]] bool isFocused(const Node &node);
    /// Whether it is within its window, and not scrolled away.
    [[nodiscard]] bool isShowing(const Node &node);
    /// Does what pressing it does.
    bool press(const Node &node);
    /// Gives it the keyboard's focus.
    bool focus(const Node &node);

    [[nodiscard]] const QDBusConnection &bus() const { return m_bus; }

private:
    [[nodiscard]] QDBusMessage call(const Node &node, const char *interface, const char *method,
                                    const QVariantList &arguments = {});
    [[nodiscard]] QString property(const Node &node, const char *name);
    [[nodiscard]] bool hasState(const Node &node, int state);
    /// A hidden node has no place.
    [[nodiscard]] bool hasPlace(const Node &node);
    [[nodiscard]] std::vector<Node> children(const Node &node);
    void collect(const Node &from, const QString &role, std::vector<Node> &found);

    QDBusConnection accessibilityBus();

    PrivateBus &m_session;
    QProcess m_launcher;
    QDBusConnection m_bus;
};

} // namespace palomet::test
