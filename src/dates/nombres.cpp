#include "dates/nombres.h"

#include <algorithm>
#include <array>

namespace {

struct clsNombre {
    std::uint32_t lngCodigo;
    std::string_view strNombre;
};

// Deliberate: names are as they are known to the people who use them ("Coeffecients" too). Of a
// code that stands here twice the first name counts; the second one is never shown.
constexpr std::array lstNombres = std::to_array<clsNombre>({
    {0x010E, "Image Description"             },
    {0x010F, "Camera Make"                   },
    {0x0110, "Camera Model"                  },
    {0x0112, "Orientation"                   },
    {0x011A, "X Resolution"                  },
    {0x011B, "Y Resolution"                  },
    {0x0128, "Resolution Unit"               },
    {0x0131, "Software"                      },
    {0x0132, "Date Time"                     },
    {0x013E, "White Point"                   },
    {0x013F, "Primary Chromaticities"        },
    {0x0211, "YCbCr Coefficients"            },
    {0x0213, "YCbCr Positioning"             },
    {0x0214, "Reference Black White"         },
    {0x8298, "Copyright"                     },
    {0x8769, "Exif Offset"                   },
    {0x829A, "Exposure Time"                 },
    {0x829D, "FStop"                         },
    {0x8822, "Exposure Program"              },
    {0x8827, "ISO Speed Ratings"             },
    {0x9000, "Exif Version"                  },
    {0x9003, "Date Time Original"            },
    {0x9004, "Date Time Digitized"           },
    {0x9101, "Components Configuration"      },
    {0x9102, "Compressed Bits Per Pixel"     },
    {0x9201, "Shutter Speed Value"           },
    {0x9202, "Aperture Value"                },
    {0x9203, "Brightness Value"              },
    {0x9204, "Exposure Bias Value"           },
    {0x9205, "Max Aperture Value"            },
    {0x9206, "Subject Distance"              },
    {0x9207, "Metering Mode"                 },
    {0x9208, "Light Source"                  },
    {0x9209, "Flash"                         },
    {0x920A, "Focal Length"                  },
    {0x927C, "Maker Note"                    },
    {0x9286, "User Comment"                  },
    {0x9290, "Subsec Time"                   },
    {0x9291, "Subsec Time Original"          },
    {0x9292, "Subsec Time Digitized"         },
    {0xA000, "Flash Pix Version"             },
    {0xA001, "Color Space"                   },
    {0xA002, "Exif Image Width"              },
    {0xA003, "Exif Image Height"             },
    {0xA004, "Related Sound File"            },
    {0xA005, "Exif Interoperability Offset"  },
    {0xA20E, "Focal Plane X Resolution"      },
    {0xA20F, "Focal Plane Y Resolution"      },
    {0xA210, "Focal Plane Resolution Unit"   },
    {0xA215, "Exposure Index"                },
    {0xA217, "Sensing Method"                },
    {0xA300, "File Source"                   },
    {0xA301, "Scene Type"                    },
    {0xA302, "CFA Pattern"                   },
    {0x0001, "Interoperability Index"        },
    {0x0002, "Interoperability Version"      },
    {0x1000, "Related Image File Format"     },
    {0x1001, "Related Image Width"           },
    {0x1002, "Related Image Length"          },
    {0x0100, "Image Width"                   },
    {0x0101, "Image Height"                  },
    {0x0102, "Bits Per Sample"               },
    {0x0103, "Compression"                   },
    {0x0106, "Photometric Interpretation"    },
    {0x0111, "Strip Offsets"                 },
    {0x0115, "Sample Per Pixel"              },
    {0x0116, "Rows Per Strip"                },
    {0x0117, "Strip Byte Counts"             },
    {0x011A, "X Resolution 2"                },
    {0x011B, "Y Resolution 2"                },
    {0x011C, "Planar Configuration"          },
    {0x0128, "Resolution Unit 2"             },
    {0x0201, "JPEG Interchange Format"       },
    {0x0202, "JPEG Interchange Format Length"},
    {0x0211, "YCbCr Coeffecients"            },
    {0x0212, "YCbCr Sub Sampling"            },
    {0x0213, "YCbCr Positioning 2"           },
    {0x0214, "Reference Black White 2"       },
    {0x00FE, "New Subfile Type"              },
    {0x00FF, "Subfile Type"                  },
    {0x012D, "Transfer Function"             },
    {0x013B, "Artist"                        },
    {0x013D, "Predictor"                     },
    {0x0142, "Tile Width"                    },
    {0x0143, "Tile Length"                   },
    {0x0144, "Tile Offsets"                  },
    {0x0145, "Tile Byte Counts"              },
    {0x014A, "Sub IFDs"                      },
    {0x015B, "JPEG Tables"                   },
    {0x828D, "CFA Repeat Pattern Dim"        },
    {0x828E, "CFA Pattern 2"                 },
    {0x828F, "Battery Level"                 },
    {0x83BB, "IPTC_NAA"                      },
    {0x8773, "Inter Color Profile"           },
    {0x8824, "Spectral Sensitivity"          },
    {0x8825, "GPS Info"                      },
    {0x8828, "OECF"                          },
    {0x8829, "Interlace"                     },
    {0x882A, "Time Zone Offset"              },
    {0x882B, "Self Timer Mode"               },
    {0x920B, "Flash Energy"                  },
    {0x920C, "Spatial Frequency Response"    },
    {0x920D, "Noise"                         },
    {0x9211, "Image Number"                  },
    {0x9212, "Security Classification"       },
    {0x9213, "Image History"                 },
    {0x9214, "Subject Location"              },
    {0x9215, "Exposure Index 2"              },
    {0x9216, "TIFFEP Standard ID"            },
    {0xA20B, "Flash Energy 2"                },
    {0xA20C, "Spatial Frequency Response 2"  },
    {0xA214, "Subject Location 2"            },
});
static_assert(lstNombres.size() == 112);

struct clsTextoNumero {
    std::string_view strNombre;
    std::uint32_t lngNumero;
    std::string_view strTexto;
};

// Exif 2.32, sections 4.6.4 and 4.6.5, and TIFF 6.0, section 8, give the meaning of the numbers.
constexpr clsTextoNumero lstTextos[] = {
    {"Orientation",                0,     "Undefined"                                 },
    {"Orientation",                1,     "Normal"                                    },
    {"Orientation",                2,     "Flip Horizontal"                           },
    {"Orientation",                3,     "Rotate 180"                                },
    {"Orientation",                4,     "Flip Vertical"                             },
    {"Orientation",                5,     "Transpose"                                 },
    {"Orientation",                6,     "Rotate 90"                                 },
    {"Orientation",                7,     "Transverse"                                },
    {"Orientation",                8,     "Rotate 270"                                },
    {"Metering Mode",              0,     "Unknown"                                   },
    {"Metering Mode",              1,     "Average"                                   },
    {"Metering Mode",              2,     "Centre Weighted Average"                   },
    {"Metering Mode",              3,     "Spot"                                      },
    {"Metering Mode",              4,     "Multi-spot"                                },
    {"Metering Mode",              5,     "Multi-segment"                             },
    {"Metering Mode",              6,     "Partial"                                   },
    {"Metering Mode",              255,   "Other"                                     },
    {"Flash",                      0,     "No flash"                                  },
    {"Flash",                      1,     "Flash fired"                               },
    {"Flash",                      5,     "Flash fired, but no strobe bounce detected"},
    {"Flash",                      7,     "Flash fired, and strobe bounce detected"   },
    {"Color Space",                1,     "sRGB"                                      },
    {"Color Space",                65535, "Uncalibrated"                              },
    {"Compression",                1,     "None"                                      },
    {"Compression",                6,     "JPEG"                                      },
    {"Photometric Interpretation", 1,     "Monochrome"                                },
    {"Photometric Interpretation", 2,     "RGB"                                       },
    {"Photometric Interpretation", 6,     "YCbCr"                                     },
    {"Planar Configuration",       1,     "Chunked"                                   },
    {"Planar Configuration",       2,     "Planes"                                    },
    {" Unit",                      1,     "no unit"                                   },
    {" Unit",                      2,     "inch"                                      },
    {" Unit",                      3,     "cm"                                        },
};
constexpr std::string_view strUnidad = " Unit";

} // namespace

std::string fCodigoExif(std::uint32_t lngCodigo)
{
    constexpr std::string_view strCifras = "0123456789ABCDEF";
    std::string strCodigo = "0000";
    for (std::size_t lng = 4; lng-- > 0; lngCodigo >>= 4) {
        strCodigo[lng] = strCifras[lngCodigo & 15];
    }
    return strCodigo;
}

std::string fNombreExif(std::uint32_t lngCodigo)
{
    const auto *const nombre =
        std::find_if(lstNombres.begin(), lstNombres.end(),
                     [&](const clsNombre &uno) { return uno.lngCodigo == lngCodigo; });
    return nombre == lstNombres.end() ? fCodigoExif(lngCodigo) : std::string(nombre->strNombre);
}

std::optional<std::string_view> fTextoNumeroExif(std::string_view strNombre,
                                                 std::optional<std::uint32_t> lngNumero)
{
    const bool bolUnidad = strNombre.find(strUnidad) != std::string_view::npos;
    const std::string_view strRegla = bolUnidad ? strUnidad : strNombre;
    bool bolConocido = false;
    for (const clsTextoNumero &texto : lstTextos) {
        bolConocido = bolConocido || texto.strNombre == strRegla;
        if (texto.strNombre == strRegla && texto.lngNumero == lngNumero) {
            return texto.strTexto;
        }
    }
    if (!bolConocido) {
        return {};
    }
    return bolUnidad ? "undefined" : "Undefined";
}
