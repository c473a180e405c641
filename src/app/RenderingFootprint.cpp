#include "app/RenderingFootprint.h"

#include <QByteArray>
#include <QSurfaceFormat>
#include <QtGlobal>

namespace RenderingFootprint {

void trim()
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setDepthBufferSize(0);
    format.setStencilBufferSize(0);
    QSurfaceFormat::setDefaultFormat(format);
    if (!qEnvironmentVariableIsSet("QSG_NO_DEPTH_BUFFER"))
        qputenv("QSG_NO_DEPTH_BUFFER", "1");
    for (const char *atlasSide : { "QSG_ATLAS_WIDTH", "QSG_ATLAS_HEIGHT" }) {
        if (!qEnvironmentVariableIsSet(atlasSide))
            qputenv(atlasSide, "512");
    }
}

} // namespace RenderingFootprint
