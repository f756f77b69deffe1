#include "shared/errores.h"

#include "shared/texto.h"

#include <cerrno>
#include <map>
#include <system_error>

std::string fTextoError(clsError error)
{
    static const std::map<int, std::string> mapTextos = {
        {EPERM,        "Operación no permitida"                  },
        {ENOENT,       "No existe el fichero o la carpeta"        },
        {EIO,          "Error de entrada/salida"                  },
        {EAGAIN,       "No hay recursos suficientes"              },
        {EBADF,        "Descriptor de fichero erróneo"           },
        {ENOMEM,       "No hay memoria suficiente"                },
        {EACCES,       "Permiso denegado"                         },
        {EBUSY,        "El fichero está en uso"                  },
        {EEXIST,       "El fichero ya existe"                     },
        {ENOTDIR,      "No es una carpeta"                        },
        {EISDIR,       "Es una carpeta"                           },
        {EINVAL,       "Argumento inválido"                      },
        {EMFILE,       "Demasiados ficheros abiertos"             },
        {EFBIG,        "Fichero demasiado grande"                 },
        {ENOSPC,       "No queda espacio en el dispositivo"       },
        {EROFS,        "Sistema de ficheros de solo lectura"      },
        {ENAMETOOLONG, "Nombre de fichero demasiado largo"        },
        {ELOOP,        "Demasiados niveles de enlaces simbólicos"},
        {ESTALE,       "El fichero ha desaparecido del servidor"  },
        {EDQUOT,       "Se ha excedido la cuota de disco"         },
        {EBADMSG,      "El contenido está dañado"               },
        {ENOTCONN,     "La unidad de red no está conectada"      },
        {ETIMEDOUT,    "Se ha agotado el tiempo de espera"        },
        {EHOSTDOWN,    "El servidor no responde"                  },
    };
    const int intNumero = error.fNumero();
    const auto it = mapTextos.find(intNumero);
    return std::to_string(intNumero) + ": " +
           (it != mapTextos.end() ? it->second
                                  : fTextoPantalla(std::system_category().message(intNumero)));
}
