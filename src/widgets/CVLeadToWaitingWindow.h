#pragma once

/// Brings a modal window to the front that waits for an answer; false when there is none. The budget that such a window
/// asks about must not be replaced meanwhile.
bool CVLeadToWaitingWindow();
