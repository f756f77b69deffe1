#!/usr/bin/env bash
# Makes 40 videos of the seven kinds for miravel_bench_videos: bench/visor/hacer_videos.sh FOLDER
# Needs ffmpeg. Each recipe is encoded once, 20 seconds of a test picture, and copied under further
# names.
set -euo pipefail
folder=${1:?Usage: hacer_videos.sh FOLDER}
mkdir -p -- "$folder"
cd -- "$folder"

# make COPIES NAME.EXTENSION SIZE FFMPEG_OPTION...
make() {
    local copies=$1 name=$2 size=$3 n
    shift 3
    ffmpeg -v error -nostdin -y -f lavfi -i "testsrc2=size=$size:rate=25:duration=20" \
        -f lavfi -i "sine=frequency=440:duration=20" "$@" "${name%.*}-1.${name##*.}"
    for ((n = 2; n <= copies; ++n)); do
        cp -- "${name%.*}-1.${name##*.}" "${name%.*}-$n.${name##*.}"
    done
}

make 3 mpeg1.mpg 352x288 -c:v mpeg1video -b:v 1150k -c:a mp2
make 3 mpeg2.mpg 720x576 -aspect 16:9 -c:v mpeg2video -b:v 5M -c:a mp2
make 3 mjpeg.avi 640x480 -c:v mjpeg -q:v 5 -c:a pcm_u8
make 3 mpeg4.avi 720x400 -c:v mpeg4 -vtag XVID -b:v 1500k -c:a libmp3lame
make 3 wmv1.wmv 320x240 -c:v wmv1 -b:v 500k -c:a wmav2
make 3 wmv2.wmv 1280x720 -c:v wmv2 -b:v 4M -c:a wmav2
make 2 h263.3gp 176x144 -c:v h263 -b:v 128k -c:a aac -ar 8000 -ac 1
make 3 mpeg4.3gp 320x240 -c:v mpeg4 -b:v 384k -c:a aac
make 3 flv1.flv 320x240 -c:v flv1 -b:v 400k -c:a libmp3lame -ar 44100
make 3 h264.flv 854x480 -c:v libx264 -preset veryfast -c:a aac
make 3 mjpeg.mov 640x480 -c:v mjpeg -q:v 5 -c:a pcm_u8
make 2 h264.mov 1280x720 -c:v libx264 -preset veryfast -g 50 -c:a aac
make 4 h264.mp4 1920x1080 -c:v libx264 -preset veryfast -g 50 -c:a aac
make 2 h265.mp4 3840x2160 -c:v libx265 -preset ultrafast -x265-params log-level=none:keyint=50 -c:a aac
