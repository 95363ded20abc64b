#include "CVPrivateDisplay.h"

#include <QDeadlineTimer>

#include <poll.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace {

constexpr int kServerPatience = 30'000;
constexpr quint32 kLongestTitle = 256;

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

} // namespace

CVPrivateDisplay::CVPrivateDisplay() {
    using namespace Qt::StringLiterals;
    mServer.start(u"Xvfb"_s, {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s, u"1280x800x24"_s, u"-nolisten"_s, u"tcp"_s,
                              u"-noreset"_s});
    if (!mServer.waitForReadyRead(kServerPatience))
        qFatal("Xvfb did not start: %s", qUtf8Printable(mServer.errorString()));
    mName = u':' + QString::fromLatin1(mServer.readLine().trimmed());
    mConnection = xcb_connect(mName.toLatin1().constData(), nullptr);
    if (xcb_connection_has_error(mConnection))
        qFatal("The display %s does not answer", qUtf8Printable(mName));
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(mConnection)).data->root;
    const quint32 windows = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(mConnection, root, XCB_CW_EVENT_MASK, &windows);
    const QByteArray title("_NET_WM_NAME");
    const Owned<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        mConnection, xcb_intern_atom(mConnection, 0, static_cast<quint16>(title.size()), title.constData()), nullptr));
    mTitleAtom = atom ? atom->atom : 0;
    xcb_flush(mConnection);
}

CVPrivateDisplay::~CVPrivateDisplay() {
    xcb_disconnect(mConnection);
    mServer.terminate();
    mServer.waitForFinished();
}

bool CVPrivateDisplay::waitForWindow(const QByteArray& title, std::chrono::seconds patience) {
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        const Owned<xcb_generic_event_t> event(xcb_poll_for_event(mConnection));
        if (!event) {
            pollfd input{xcb_get_file_descriptor(mConnection), POLLIN, 0};
            ::poll(&input, 1, static_cast<int>(deadline.remainingTime()));
        } else if ((event->response_type & 0x7f) == XCB_MAP_NOTIFY &&
                   titleOf(reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window) == title) {
            return true;
        }
    }
    return false;
}

QByteArray CVPrivateDisplay::titleOf(quint32 window) {
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        mConnection, xcb_get_property(mConnection, 0, window, mTitleAtom, XCB_ATOM_ANY, 0, kLongestTitle), nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())), xcb_get_property_value_length(reply.get())};
}
