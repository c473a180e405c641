#include "recording/RecordingLog.h"

Q_LOGGING_CATEGORY(lcRecording, "glimmora.recording")
