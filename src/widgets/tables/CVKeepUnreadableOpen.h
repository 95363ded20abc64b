#pragma once

class QEvent;
class QObject;

/// For the event filter of a delegate: whether the event would end the editing of a formatted field whose text cannot
/// be read. The field is then marked and says what is expected, the user hears a beep, and the event is to go no
/// further.
[[nodiscard]] bool CVKeepUnreadableOpen(QObject* editor, QEvent* event);
