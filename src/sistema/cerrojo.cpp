#include "sistema/cerrojo.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

clsCerrojoArchivo::clsCerrojoArchivo(const std::string &strRaiz)
    : m_carpeta(open(strRaiz.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    m_bolTenido = !m_carpeta.fAbierto() || flock(m_carpeta.fFd(), LOCK_EX | LOCK_NB) == 0 ||
                  errno != EWOULDBLOCK;
}
