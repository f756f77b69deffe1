#include "paseo_desnudo.h"

#include <condition_variable>
#include <cstddef>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <iterator>
#include <mutex>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <vector>

clsCuenta fPasearDesnudo(const std::string &strRaiz, int intHilos)
{
    std::vector<std::string> lstCarpetas{strRaiz};
    std::size_t lngAbiertas = 1; // folders that are waiting or being read
    std::mutex cerrojo;
    std::condition_variable aviso;
    clsCuenta cuenta;
    const auto fTrabajar = [&] {
        alignas(dirent64) char lstBloque[32768];
        std::unique_lock guarda(cerrojo);
        while (true) {
            aviso.wait(guarda, [&] { return !lstCarpetas.empty() || lngAbiertas == 0; });
            if (lstCarpetas.empty()) {
                return;
            }
            const std::string strCarpeta = std::move(lstCarpetas.back());
            lstCarpetas.pop_back();
            guarda.unlock();
            std::vector<std::string> lstNuevas;
            clsCuenta suya;
            const int intFd =
                openat(AT_FDCWD, strCarpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            for (ssize_t lngLeidos;
                 (lngLeidos = getdents64(intFd, lstBloque, sizeof lstBloque)) > 0;) {
                for (ssize_t lngPos = 0; lngPos < lngLeidos;) {
                    const auto *const dir = reinterpret_cast<const dirent64 *>(lstBloque + lngPos);
                    lngPos += dir->d_reclen;
                    struct stat datos {};
                    if (dir->d_type == DT_DIR) {
                        if (std::strcmp(dir->d_name, ".") != 0 &&
                            std::strcmp(dir->d_name, "..") != 0) {
                            lstNuevas.push_back(strCarpeta + '/' + dir->d_name);
                        }
                    } else if (fstatat(intFd, dir->d_name, &datos, AT_SYMLINK_NOFOLLOW) == 0) {
                        ++suya.lngFicheros;
                        suya.lngBytes += datos.st_size;
                    }
                }
            }
            close(intFd);
            guarda.lock();
            cuenta.lngFicheros += suya.lngFicheros;
            cuenta.lngBytes += suya.lngBytes;
            lngAbiertas += lstNuevas.size() - 1;
            std::move(lstNuevas.begin(), lstNuevas.end(), std::back_inserter(lstCarpetas));
            aviso.notify_all();
        }
    };
    std::vector<std::thread> lstHilos;
    for (int intHilo = 0; intHilo < intHilos; ++intHilo) {
        lstHilos.emplace_back(fTrabajar);
    }
    for (std::thread &hilo : lstHilos) {
        hilo.join();
    }
    return cuenta;
}
