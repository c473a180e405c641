#pragma once

#include <QSharedMemory>
#include <QString>

// One running instance per user session, held as a one-byte shared memory
// segment for the life of this object.
class SingleInstanceLock
{
public:
    explicit SingleInstanceLock(const QString &key);

    // True when this process now holds the lock, false when another live
    // process does.
    bool tryLock();

private:
    QSharedMemory m_memory;
};
