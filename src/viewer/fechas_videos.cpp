#include "viewer/fechas_videos.h"

#include <utility>

clsFechasVideos::clsFechasVideos(std::string strPrograma, std::chrono::milliseconds plazo)
    : m_hijo(std::move(strPrograma), plazo)
{
}

std::string clsFechasVideos::fDatos(const clsAbierto &video, const std::atomic<bool> &bolAnulado)
{
    const std::lock_guard guardia(m_cerrojo);
    return m_hijo.fPedirFechas(video, bolAnulado);
}
