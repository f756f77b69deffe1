#include "referencia_jpeg.h"

#include <cstdio>
#include <jpeglib.h>
#include <vector>

long fReferenciaJpeg(const char *strRuta, int intAncho, int intAlto)
{
    FILE *const archivo = std::fopen(strRuta, "rb");
    if (archivo == nullptr) {
        return 0;
    }
    jpeg_decompress_struct jpeg{};
    jpeg_error_mgr errores{};
    jpeg.err = jpeg_std_error(&errores);
    jpeg_create_decompress(&jpeg);
    jpeg_stdio_src(&jpeg, archivo);
    jpeg_read_header(&jpeg, TRUE);
    jpeg.out_color_space = JCS_EXT_BGRX;
    jpeg.scale_denom = 8;
    for (jpeg.scale_num = 1; jpeg.scale_num < 8; ++jpeg.scale_num) {
        // The picture is fitted: one of its sides has to reach the box.
        jpeg_calc_output_dimensions(&jpeg);
        if (jpeg.output_width >= static_cast<JDIMENSION>(intAncho) ||
            jpeg.output_height >= static_cast<JDIMENSION>(intAlto)) {
            break;
        }
    }
    jpeg_start_decompress(&jpeg);
    std::vector<JSAMPLE> lstPixeles(static_cast<std::size_t>(jpeg.output_width) *
                                    jpeg.output_height * 4);
    while (jpeg.output_scanline < jpeg.output_height) {
        JSAMPROW fila =
            &lstPixeles[static_cast<std::size_t>(jpeg.output_width) * 4 * jpeg.output_scanline];
        jpeg_read_scanlines(&jpeg, &fila, 1);
    }
    const long lngPixeles = static_cast<long>(jpeg.output_width) * jpeg.output_height;
    jpeg_finish_decompress(&jpeg);
    jpeg_destroy_decompress(&jpeg);
    std::fclose(archivo);
    return lngPixeles;
}
