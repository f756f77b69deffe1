#include "sistema/mapa.h"

#include <sys/mman.h>

clsMapa::clsMapa(const clsAbierto &archivo)
{
    const auto lngBytes = static_cast<std::size_t>(archivo.huella.lngBytes);
    void *const bytDatos =
        archivo.huella.lngBytes <= 0
            ? MAP_FAILED
            : mmap(nullptr, lngBytes, PROT_READ, MAP_PRIVATE, archivo.descriptor.fFd(), 0);
    if (bytDatos != MAP_FAILED) {
        m_strBytes = {static_cast<const char *>(bytDatos), lngBytes};
    }
}

clsMapa::~clsMapa()
{
    if (!m_strBytes.empty()) {
        munmap(const_cast<char *>(m_strBytes.data()), m_strBytes.size());
    }
}
