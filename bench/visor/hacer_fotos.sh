#!/bin/sh
# Makes 300 photos for miravel_bench_miniaturas: hacer_fotos.sh PROGRAM FOLDER. FOLDER/sin holds
# 30 photos of 24 megapixels and 270 further links to them, FOLDER/con the same with an EXIF
# thumbnail of 160 x 107. Needs exiftool and vipsthumbnail.
set -eu
program=$1
folder=$2
mkdir -p "$folder/sin" "$folder/con"
"$program" "$folder/sin" 30
vipsthumbnail --size 160 -o "$folder/mini.jpg" "$folder/sin/IMG_0000.JPG"
for photo in "$folder"/sin/IMG_*.JPG; do
    exiftool -q -o "$folder/con/" "-ThumbnailImage<=$folder/mini.jpg" "$photo"
done
for kind in sin con; do
    for photo in "$folder/$kind"/IMG_*.JPG; do
        for copy in 1 2 3 4 5 6 7 8 9; do
            ln -f "$photo" "${photo%.JPG}_$copy.JPG"
        done
    done
done
