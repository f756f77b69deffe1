#include "viewer/cThumbnailGenerator.h"

#include "shared/texto.h"

#include <algorithm>
#include <utility>

cThumbnailGenerator::cThumbnailGenerator(clsQueja fQueja, clsFuenteMini fFuente)
    : m_fQueja(std::move(fQueja)), m_fFuente(std::move(fFuente))
{
}

void cThumbnailGenerator::fGetThumbnail(bool &ok, std::unique_ptr<pcMemDC> &picture)
{
    ok = false;
    picture.reset();
    const clsMiniatura miniatura = m_fFuente(Filename, std::min(DesiredWidth, DesiredHeight));
    if (miniatura.extraccion == Extraccion::Disco || miniatura.extraccion == Extraccion::Falta) {
        m_fQueja("Error al generar el Thumbnail: " + fTextoPantalla(Filename));
    }
    if (miniatura.extraccion != Extraccion::Hecha) {
        return;
    }
    picture = std::make_unique<pcMemDC>();
    picture->CreateFromHBitmap(miniatura.imagen);
    ok = true;
}
