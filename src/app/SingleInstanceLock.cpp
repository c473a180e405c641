#include "app/SingleInstanceLock.h"

SingleInstanceLock::SingleInstanceLock(const QString &key)
    : m_memory(key)
{
}

bool SingleInstanceLock::tryLock()
{
    // On Unix a segment outlives a killed owner. Attaching and detaching
    // removes it when nobody else is attached, so a crash cannot lock the
    // user out, while a live owner keeps it.
    if (m_memory.attach())
        m_memory.detach();
    return m_memory.create(1, QSharedMemory::ReadWrite);
}
