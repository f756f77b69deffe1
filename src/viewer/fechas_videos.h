#pragma once

#include "viewer/hijo.h"

#include <mutex>

/// What videos say of their dates, asked of our child program, which reads their headers. Safe to
/// call on several threads: they wait for each other, as one file takes about a millisecond.
class clsFechasVideos {
public:
    /// @param strPrograma path of the child program.
    explicit clsFechasVideos(std::string strPrograma,
                             std::chrono::milliseconds plazo = std::chrono::seconds(5));

    /// @param bolAnulado see clsProgramaHijo.
    /// @return for fFechaDeVideo; empty when the video says nothing, or cannot be read.
    [[nodiscard]] std::string fDatos(const clsAbierto &video, const std::atomic<bool> &bolAnulado);

private:
    std::mutex m_cerrojo;
    clsProgramaHijo m_hijo;
};
