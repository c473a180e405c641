#pragma once

#include <QLoggingCategory>

// Shared by the classes of the capture subsystem ("glimmora.capture").
Q_DECLARE_LOGGING_CATEGORY(lcCapture)
