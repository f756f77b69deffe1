#include "shared/errores.h"

#include "shared/texto.h"

#include <cerrno>
#include <system_error>

std::string fDescripcionError(clsError error)
{
    struct clsFila {
        int intError;
        const char *strTexto;
    };
    static constexpr clsFila lstTextos[] = {
        {EPERM,        "Operación no permitida"                  },
        {ENOENT,       "No existe el fichero o la carpeta"        },
        {EIO,          "Error de entrada/salida"                  },
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
        {ENOTCONN,     "La unidad de red no está conectada"      },
        {ETIMEDOUT,    "Se ha agotado el tiempo de espera"        },
        {EHOSTDOWN,    "El servidor no responde"                  },
    };
    for (const clsFila &fila : lstTextos) {
        if (error == fila.intError) {
            return fila.strTexto;
        }
    }
    return fTextoPantalla(std::system_category().message(error.fNumero()));
}

std::string fTextoError(clsError error)
{
    return std::to_string(error.fNumero()) + ": " + fDescripcionError(error);
}
