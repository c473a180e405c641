#include "app/SingleInstanceLock.h"

#include <QFile>

SingleInstanceLock::SingleInstanceLock(const QString &key)
    : m_memory(key)
{
}

bool SingleInstanceLock::tryLock()
{
    // On Unix a segment outlives a killed owner, and its key is derived from a
    // key file that may be gone. Attaching and detaching removes such a segment
    // when nobody is attached, so a crash cannot lock the user out, while a
    // live owner keeps it. Attaching needs the key file, so it is made first.
    for (int attempt = 0; attempt < 4; ++attempt) {
        const QString keyFile = m_memory.nativeKey();
        if (!keyFile.isEmpty() && !QFile::exists(keyFile)) {
            QFile file(keyFile);
            file.open(QIODevice::WriteOnly);
        }
        const bool attached = m_memory.attach();
        if (attached)
            m_memory.detach();
        if (m_memory.create(1, QSharedMemory::ReadWrite))
            return true;
        // Still there after a detach: a live process holds it.
        if (m_memory.error() != QSharedMemory::AlreadyExists || attached)
            return false;
    }
    return false;
}
