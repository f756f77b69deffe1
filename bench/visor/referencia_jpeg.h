#pragma once

/// Reference: a bare libjpeg decode of a file to 32-bit pixels, at the smallest scale of the
/// library (in eighths) that covers the box. Returns the number of pixels; 0 when it cannot be
/// read.
long fReferenciaJpeg(const char *strRuta, int intAncho, int intAlto);
