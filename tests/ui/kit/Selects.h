#pragma once

#include "tests/ui/support/Scene.h"

#include <gtest/gtest.h>

namespace palomet::test {

inline constexpr auto three = R"(
    Item { width: 640; height: 480
        property var picks: []
        ZenSelect { objectName: "select"; x: 100; y: 100; width: 160; value: "1×"; selected: "b"
            choices: [{ id: "a", title: "Alpha" }, { id: "b", title: "Beta" }, { id: "c", title: "Gamma" }]
            onPicked: id => parent.picks.push(id) }
        ZenButton { objectName: "other"; x: 400; y: 400; title: "Other" } })";

inline QList<QQuickItem *> lists(Scene &scene) {
    return Scene::all(scene.window().contentItem(), "SelectList");
}

inline QList<QQuickItem *> choices(Scene &scene) {
    QList<QQuickItem *> found;
    for (auto *list : lists(scene))
        for (auto *item : Scene::all(list, "Pressable"))
            if (item->property("modelData").isValid())
                found.append(item);
    return found;
}

inline QVariantList picks(Scene &scene) {
    return scene.root()->property("picks").toList();
}

/// Twenty choices, of which eight show.
inline constexpr auto twenty = R"(
    Item { width: 640; height: 480
        property var picks: []
        ZenSelect { objectName: "select"; width: 160; selected: "1"
            choices: Array.from({length: 20}, (_, i) => ({ id: String(i), title: "Choice " + i }))
            onPicked: id => parent.picks.push(id) } })";

inline int current(Scene &scene) {
    return lists(scene).first()->property("current").toInt();
}

inline QQuickItem *choice(Scene &scene, int index) {
    for (auto *item : choices(scene))
        if (item->property("index") == index && item->isVisible())
            return item;
    ADD_FAILURE() << "Choice " << index << " does not show.";
    return nullptr;
}

inline void wheel(Scene &scene, QPointF at, int angle) {
    QWheelEvent event(at, scene.window().mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&scene.window(), &event);
}

inline bool isClosed(Scene &scene) {
    return !scene.value("select", "isOpen").toBool() && eventually([&] { return lists(scene).isEmpty(); });
}

} // namespace palomet::test
