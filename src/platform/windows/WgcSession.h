#pragma once

#include <QSize>
#include <QString>

#include <d3d11.h>
#include <functional>
#include <memory>
#include <wrl/client.h>

// The Windows Graphics Capture calls, the only code of the program that needs
// the C++/WinRT projection, kept this small on purpose. A session captures
// one monitor into a free-threaded frame pool of two buffers, without cursor
// and border, and hands each arrival to a callback on a system thread.
// WinRT exceptions end here: calls report an HRESULT, and a failure that
// carries none is E_UNEXPECTED with the exception's text.
class WgcSession
{
public:
    // A frame-arrived notification; valid during the callback only.
    class Arrival
    {
    public:
        virtual ~Arrival() = default;
        // Takes the pool's next frame: S_OK, S_FALSE when there is none, or
        // the failure. A taken frame that is not kept returns to the pool
        // when the callback ends.
        virtual HRESULT takeNext() = 0;
        // The taken frame's texture, and a holder that keeps the pool buffer
        // behind it from being reused for as long as the holder lives.
        virtual HRESULT texture(Microsoft::WRL::ComPtr<ID3D11Texture2D> *texture,
                                std::shared_ptr<void> *holder) = 0;
    };
    using FrameArrived = std::function<void(Arrival &arrival)>;

    WgcSession();
    ~WgcSession();
    WgcSession(const WgcSession &) = delete;
    WgcSession &operator=(const WgcSession &) = delete;

    // Joins the calling thread to the multi-threaded apartment.
    static HRESULT initApartment();
    // False on Windows versions without Graphics Capture.
    static bool isSupported();

    // The capture item of `monitor` for frames on `device`, and its size.
    HRESULT open(ID3D11Device *device, HMONITOR monitor, QSize *itemSize, QString *exceptionText);
    // Creates the frame pool and the session and starts capturing.
    HRESULT start(FrameArrived onFrame, QString *exceptionText);
    bool isRunning() const;
    // Unregisters the callback, closes session and pool and drops every
    // object. A callback that has already begun may still be running.
    void close();

private:
    struct Objects;
    std::unique_ptr<Objects> d;
};
