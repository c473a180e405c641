#pragma once

#include <QLoggingCategory>

// Shared by the recording manager, its worker, the writer and the frame source.
Q_DECLARE_LOGGING_CATEGORY(lcRecording)
