#include "platform/x11/X11WorkArea.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Properties.h"
#include "platform/x11/XcbReply.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace palomet {

namespace {

/// A strut: how far it reaches into the whole display from an edge, and from where to where along that edge.
enum Strut { Left, Right, Top, Bottom, LeftFrom, LeftTo, RightFrom, RightTo, TopFrom, TopTo, BottomFrom, BottomTo };
using Struts = std::array<quint32, BottomTo + 1>;

/// How many pixels a screen can be smaller than it is in truth, its size being rounded to points.
constexpr int rounding = 4;

struct Atoms {
    xcb_atom_t clients;
    xcb_atom_t partial;
    xcb_atom_t whole;
    xcb_atom_t desktop;
    xcb_atom_t area;
};

Atoms atoms(xcb_connection_t *connection) {
    const auto ask = [&](const char *name) { return askForAtom(connection, name); };
    const auto clients = ask("_NET_CLIENT_LIST");
    const auto partial = ask("_NET_WM_STRUT_PARTIAL");
    const auto whole = ask("_NET_WM_STRUT");
    const auto desktop = ask("_NET_CURRENT_DESKTOP");
    const auto area = ask("_NET_WORKAREA");
    return {atom(connection, clients), atom(connection, partial), atom(connection, whole), atom(connection, desktop),
            atom(connection, area)};
}

/// A property of four numbers reaches along the whole of its edges.
Struts struts(const std::vector<quint32> &values, QSize display) {
    Struts struts{};
    std::copy_n(values.begin(), std::min(values.size(), struts.size()), struts.begin());
    if (values.size() < struts.size()) {
        struts[LeftTo] = struts[RightTo] = static_cast<quint32>(display.height());
        struts[TopTo] = struts[BottomTo] = static_cast<quint32>(display.width());
    }
    return struts;
}

/// The part of the display that one edge of a strut takes.
QRect taken(const Struts &struts, Strut edge, QSize display) {
    const auto limited = [](quint32 value, int most) { return static_cast<int>(std::min<qint64>(value, most)); };
    const int width = display.width();
    const int height = display.height();
    const int from = LeftFrom + 2 * edge;
    const bool isSide = edge == Left || edge == Right;
    const int depth = limited(struts.at(edge), isSide ? width : height);
    const int begin = limited(struts.at(static_cast<std::size_t>(from)), isSide ? height : width);
    const int length = limited(struts.at(static_cast<std::size_t>(from) + 1), isSide ? height : width) - begin + 1;
    if (depth == 0)
        return {};
    if (isSide)
        return {edge == Left ? 0 : width - depth, begin, depth, length};
    return {begin, edge == Top ? 0 : height - depth, length, depth};
}

/// The rest of a screen when something at that edge is taken from it. A strut that would leave nothing takes nothing.
QRect without(QRect screen, const QRect &taken, Strut edge) {
    if (!screen.intersects(taken))
        return screen;
    auto left = screen;
    if (edge == Left)
        left.setLeft(taken.right() + 1);
    else if (edge == Right)
        left.setRight(taken.left() - 1);
    else if (edge == Top)
        left.setTop(taken.bottom() + 1);
    else
        left.setBottom(taken.top() - 1);
    return left.isValid() ? left : screen;
}

/// A list of rectangles, four numbers each. None is larger than a display can be.
std::vector<QRect> rectangles(const std::vector<quint32> &values) {
    std::vector<QRect> found;
    for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
        const auto number = [&](std::size_t at) { return static_cast<int>(std::min(values[i + at], 0xFFFFU)); };
        found.emplace_back(number(0), number(1), number(2), number(3));
    }
    return found;
}

/// The part of a screen that both leave. An area that would leave nothing is out of date.
QRect within(const QRect &left, const QRect &area) {
    const auto both = left & area;
    return both.isEmpty() ? left : both;
}

qint64 size(const QRect &area) {
    return qint64{area.width()} * area.height();
}

/// The part of a screen that the window manager itself leaves; nothing where it does not say so.
std::optional<QRect> areaOf(const X11Connection &x11, const Atoms &atoms, const QRect &screen, QSize display) {
    auto *connection = x11.get();
    const auto current = ask(connection, x11.root(), atoms.desktop);
    const auto whole = ask(connection, x11.root(), atoms.area);
    const auto desktops = values(connection, current);
    const auto desktop = desktops.empty() ? 0 : desktops.front();
    const auto name = atom(connection, askForAtom(connection, "_GTK_WORKAREAS_D" + QByteArray::number(desktop)));
    const auto monitors = rectangles(values(connection, ask(connection, x11.root(), name)));
    const auto areas = rectangles(values(connection, whole));

    const auto nearest = std::ranges::max_element(
        monitors, {}, [&](const QRect &area) { return (area & screen).isEmpty() ? qint64{0} : size(area & screen); });
    if (nearest != monitors.end() && nearest->intersects(screen))
        return *nearest;
    const bool isAlone = screen.adjusted(-rounding, -rounding, rounding, rounding).contains(QRect({}, display));
    if (!isAlone || areas.empty())
        return std::nullopt;
    return areas[desktop < areas.size() ? desktop : 0];
}

} // namespace

QRect X11WorkArea::usable(const QRect &screen) const {
    auto *connection = m_connection.get();
    const auto known = atoms(connection);
    const XcbReply<xcb_get_geometry_reply_t> root{
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, m_connection.root()), nullptr)};
    m_connection.deliverLater();
    if (!root)
        return screen;
    const QSize display(root->width, root->height);

    const auto windows = values(connection, ask(connection, m_connection.root(), known.clients));
    struct Question {
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
    };
    std::vector<Question> questions;
    questions.reserve(windows.size());
    for (const auto window : windows)
        questions.push_back({ask(connection, window, known.partial), ask(connection, window, known.whole)});

    auto left = screen;
    for (const auto &question : questions) {
        auto found = values(connection, question.partial);
        const auto old = values(connection, question.whole);
        if (found.size() < Struts().size())
            found = old;
        if (found.size() <= Bottom)
            continue;
        const auto reserved = struts(found, display);
        for (const auto edge : {Left, Right, Top, Bottom})
            left = without(left, taken(reserved, edge, display), edge);
    }
    const auto area = areaOf(m_connection, known, screen, display);
    return area ? within(left, *area) : left;
}

} // namespace palomet
