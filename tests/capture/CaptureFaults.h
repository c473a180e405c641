#pragma once

// Real file-system faults for the capture tests, made so that they harm nobody.

#include <QByteArray>
#include <QFile>
#include <QString>

#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>

// A small tmpfs of our own on a folder, so that a full or read-only disk is real
// and harms nobody. Needs the right to mount (root in these containers).
class ScratchMount
{
public:
    ScratchMount(const QString &path, const char *options, unsigned long flags)
        : m_path(QFile::encodeName(path))
    {
        m_mounted = ::mount("tmpfs", m_path.constData(), "tmpfs", flags, options) == 0;
    }
    ~ScratchMount()
    {
        if (m_mounted)
            ::umount2(m_path.constData(), MNT_DETACH);
    }
    bool mounted() const { return m_mounted; }

private:
    QByteArray m_path;
    bool m_mounted = false;
};

// Lowers the largest file this process may write; the kernel then refuses
// writes beyond it with EFBIG, as a full disk refuses them with ENOSPC.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_saved);
        m_oldHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit = m_saved;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_saved);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    rlimit m_saved {};
    void (*m_oldHandler)(int) = nullptr;
};
