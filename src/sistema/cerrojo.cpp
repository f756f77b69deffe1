#include "sistema/cerrojo.h"

#include "sistema/carpeta.h"
#include "sistema/llamadas.h"

#include <sys/file.h>

clsCerrojoArchivo::clsCerrojoArchivo(const std::string &strRaiz)
{
    if (auto carpeta = fAbrirCarpeta(strRaiz)) {
        m_carpeta = std::move(*carpeta);
        m_bolTenido = fInsistir<&clsLlamadas::fBloquear>(m_carpeta.fFd(), LOCK_EX | LOCK_NB) == 0 ||
                      errno != EWOULDBLOCK;
    }
}
