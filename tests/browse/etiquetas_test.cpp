#include "browse/etiquetas.h"

#include <gtest/gtest.h>

namespace {

TEST(Etiquetas, TellWhatIsNotSeenAndOnlyWhileItApplies)
{
    struct clsCaso {
        const char *strFrase;
        void (*fCambiar)(clsEstado &);
        clsEtiquetas lstTextos;
    };
    const clsCaso lstCasos[] = {
        {"nothing to tell", [](clsEstado &) {}, {}},
        {"a filter", [](clsEstado &estado) { estado.bolFiltrada = true; }, {"FILTRO"}},
        {"a tick", [](clsEstado &estado) { estado.filas.fMarcar(1, true); }, {"", "1 marcado"}},
        {"ticks",
         [](clsEstado &estado) {
             estado.filas.fMarcar(0, true);
             estado.filas.fMarcar(1, true);
         },
         {"", "2 marcados"}},
        {"a zoom", [](clsEstado &estado) { estado.intZoom = 50; }, {"", "", "Zoom 50 %"}},
        {"fitted", [](clsEstado &estado) { estado.intZoom = 0; }, {"", "", "Zoom ajustado"}},
        {"a zoom behind the page",
         [](clsEstado &estado) {
             estado.intZoom = 50;
             estado.bolMiniaturas = true;
         },
         {}},
        {"pictures to come",
         [](clsEstado &estado) { estado.bolPendiente = true; },
         {"", "", "", "Cargando..."}},
        {"copies, none of them over another file",
         [](clsEstado &estado) {
             estado.copiados = {1, 0};
         },
         {"", "", "", "", "1 copiado, 0 reemplazados"}},
        {"copies over others",
         [](clsEstado &estado) {
             estado.copiados = {7, 1};
         },
         {"", "", "", "", "7 copiados, 1 reemplazado"}},
        {"files of other formats",
         [](clsEstado &estado) { estado.lngOtros = 12; },
         {"", "", "", "", "", "12 de otros formatos"}},
        {"and nothing else",
         [](clsEstado &estado) {
             estado.filas.fVaciar();
             estado.lngOtros = 1;
         },
         {"", "", "", "", "", "1 de otros formatos"}},
        {"an empty list",
         [](clsEstado &estado) {
             estado.filas.fVaciar();
             estado.intZoom = 50;
         },
         {}},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsEstado estado;
        estado.filas.fAgregarFila("/r/a.jpg", "2010/01/01 00:00:00", 1);
        estado.filas.fAgregarFila("/r/b.jpg", "2010/01/02 00:00:00", 1);
        caso.fCambiar(estado);
        EXPECT_EQ(fEtiquetas(estado), caso.lstTextos);
    }
}

} // namespace
