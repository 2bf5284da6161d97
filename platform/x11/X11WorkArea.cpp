#include "platform/x11/X11WorkArea.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/XcbReply.h"

#include <QByteArrayView>

#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <vector>

namespace palomet {

namespace {

/// The most windows, and the most numbers of a property, that are looked at.
constexpr quint32 mostValues = 4096;

/// A strut: how far it reaches into the whole display from an edge, and from where to where along that edge.
enum Strut { Left, Right, Top, Bottom, LeftFrom, LeftTo, RightFrom, RightTo, TopFrom, TopTo, BottomFrom, BottomTo };
using Struts = std::array<quint32, BottomTo + 1>;

struct Atoms {
    xcb_atom_t clients;
    xcb_atom_t partial;
    xcb_atom_t whole;
};

xcb_atom_t atom(xcb_connection_t *connection, xcb_intern_atom_cookie_t cookie) {
    const XcbReply<xcb_intern_atom_reply_t> reply{xcb_intern_atom_reply(connection, cookie, nullptr)};
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

Atoms atoms(xcb_connection_t *connection) {
    const auto ask = [&](QByteArrayView name) {
        return xcb_intern_atom(connection, 1, static_cast<quint16>(name.size()), name.data());
    };
    const auto clients = ask("_NET_CLIENT_LIST");
    const auto partial = ask("_NET_WM_STRUT_PARTIAL");
    const auto whole = ask("_NET_WM_STRUT");
    return {atom(connection, clients), atom(connection, partial), atom(connection, whole)};
}

xcb_get_property_cookie_t ask(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property) {
    return xcb_get_property(connection, 0, window, property, XCB_ATOM_ANY, 0, mostValues);
}

std::vector<quint32> values(xcb_connection_t *connection, xcb_get_property_cookie_t cookie) {
    const XcbReply<xcb_get_property_reply_t> reply{xcb_get_property_reply(connection, cookie, nullptr)};
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    return {first, first + xcb_get_property_value_length(reply.get()) / static_cast<int>(sizeof(quint32))};
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

/// What is left of a screen when something at that edge is taken from it. What would leave nothing takes nothing.
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

} // namespace

QRect X11WorkArea::usable(const QRect &screen) const {
    auto *connection = m_connection.get();
    const auto [clients, partial, whole] = atoms(connection);
    const XcbReply<xcb_get_geometry_reply_t> root{
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, m_connection.root()), nullptr)};
    m_connection.deliverLater();
    if (!root || clients == XCB_ATOM_NONE)
        return screen;
    const QSize display(root->width, root->height);

    const auto windows = values(connection, ask(connection, m_connection.root(), clients));
    struct Question {
        xcb_get_property_cookie_t partial;
        xcb_get_property_cookie_t whole;
    };
    std::vector<Question> questions;
    questions.reserve(windows.size());
    for (const auto window : windows)
        questions.push_back({ask(connection, window, partial), ask(connection, window, whole)});

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
    return left;
}

} // namespace palomet
