#pragma once

class QEvent;
class QObject;

/// For the event filter of a delegate: refuses an event that would end the editing of a formatted field whose text
/// cannot be read. The field is then marked and says what is expected, and the user hears a beep. True when the filter
/// must stop the event.
[[nodiscard]] bool CVRefuseUnreadableText(QObject* editor, QEvent* event);
