#pragma once

class QEvent;
class QObject;

/// For the event filter of a delegate: whether the event would end the editing of a formatted field whose text cannot
/// be read. In that case the field is marked and says what is expected, the user hears a beep, and the filter must stop
/// the event.
[[nodiscard]] bool CVKeepUnreadableOpen(QObject* editor, QEvent* event);
