#!/usr/bin/env bash
# Regenerates every recording of the sample course: one MP3 for each entry of each master file
# (languages/<language>/<first two digits>/<five digits>.mp3), plus silence.mp3 and beep.mp3 at the root
# of the sample folder. Field 1 of each entry is spoken by espeak-ng, trimmed of leading and trailing
# silence and levelled by sox, padded or sped up to stay between 0.4 and 3.3 seconds, and encoded by lame
# as 32 kbit/s mono MP3 at 22050 Hz. The output is the same byte for byte on every run (sox -R), and
# each recording is made in a scratch folder and moved into place only when it differs, so the folder is
# never half-made; recordings left over from removed entries are deleted at the end.
#
# Usage: tools/make_demo_recordings.sh [sample folder]   (default: data/demo of this repository)
# Needs: espeak-ng, sox, lame, iconv. JOBS=<n> sets how many entries are made at once (default 2).
set -euo pipefail

readonly RATE=22050
readonly MIN_SECONDS=0.4
readonly MAX_SECONDS=3.3
readonly SPEED=150  # words per minute: a little slower than espeak-ng's default, for learners

repository="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
sample="${1:-$repository/data/demo}"
jobs="${JOBS:-2}"

for tool in espeak-ng sox soxi lame iconv; do
    command -v "$tool" >/dev/null || { echo "$tool is missing" >&2; exit 1; }
done
[[ -d "$sample/languages" ]] || { echo "no languages folder in $sample" >&2; exit 1; }

voice_of() {
    case "$1" in
        spanish) echo es ;;
        english) echo en-us ;;
        *) return 1 ;;
    esac
}

encode() {  # encode <wav> <mp3>: writes beside <mp3>, then replaces it only when the bytes differ
    local -r made="$2.new$$"
    lame --quiet -m m -b 32 --resample 22.05 "$1" "$made"
    if cmp -s "$made" "$2"; then rm -f "$made"; else mv -f "$made" "$2"; fi
}

# say <voice> <text> <mp3>: runs in the xargs workers, hence exported with its settings.
say() {
    set -euo pipefail
    local -r voice="$1" text="$2" out="$3"
    local work
    work="$(mktemp -d)"
    trap 'rm -rf "$work"' RETURN
    # With no text argument espeak-ng reads stdin, so words starting with "-" stay words.
    printf '%s' "$text" | espeak-ng -v "$voice" -s "$SPEED" -w "$work/spoken.wav"
    sox -R "$work/spoken.wav" -r "$RATE" -c 1 -b 16 "$work/trimmed.wav" \
        silence 1 0.05 0.5% reverse silence 1 0.05 0.5% reverse norm -3 pad 0.05 0.1
    local duration
    duration="$(soxi -D "$work/trimmed.wav")"
    if awk -v d="$duration" 'BEGIN { exit !(d < 0.2) }'; then
        echo "nothing left of \"$text\" after trimming ($out)" >&2
        return 1
    fi
    if awk -v d="$duration" -v m="$MIN_SECONDS" 'BEGIN { exit !(d < m) }'; then
        sox -R "$work/trimmed.wav" "$work/fitted.wav" pad 0 "$(awk -v d="$duration" -v m="$MIN_SECONDS" \
            'BEGIN { printf "%.3f", m - d }')"
    elif awk -v d="$duration" -v m="$MAX_SECONDS" 'BEGIN { exit !(d > m) }'; then
        sox -R "$work/trimmed.wav" "$work/fitted.wav" tempo -s "$(awk -v d="$duration" -v m="$MAX_SECONDS" \
            'BEGIN { printf "%.3f", d / m }')"
    else
        mv "$work/trimmed.wav" "$work/fitted.wav"
    fi
    mkdir -p "$(dirname "$out")"
    encode "$work/fitted.wav" "$out"
}
export -f say encode
export RATE MIN_SECONDS MAX_SECONDS SPEED

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
kept="$work/kept"

for folder in "$sample"/languages/*/; do
    language="$(basename "$folder")"
    master="$folder/master_$language.txt"
    [[ -f "$master" ]] || continue
    voice="$(voice_of "$language")" || { echo "no espeak-ng voice set for $language" >&2; exit 1; }
    count="$(iconv -f CP1252 -t UTF-8 "$master" | tr -d '\r' | awk -F'|' 'NF == 3' | wc -l)"
    echo "$language: $count recordings with voice $voice"
    # Entries of exactly three fields, as the program reads them; the sound number names the file.
    iconv -f CP1252 -t UTF-8 "$master" | tr -d '\r' | awk -F'|' 'NF == 3 { print $3 "\t" $1 }' |
        while IFS=$'\t' read -r number text; do
            [[ "$number" =~ ^[0-9]{5}$ ]] || { echo "bad sound number '$number' in $master" >&2; exit 1; }
            printf '%s\0%s\0%s\0' "$voice" "$text" "$folder${number:0:2}/$number.mp3"
        done |
        xargs -0 -n 3 -P "$jobs" bash -c 'say "$@"' say
    # Recordings whose number no longer has an entry go, then any folder left empty.
    iconv -f CP1252 -t UTF-8 "$master" | tr -d '\r' | awk -F'|' 'NF == 3 { print substr($3, 1, 2) "/" $3 ".mp3" }' >"$kept"
    find "$folder" -mindepth 2 -maxdepth 2 -path '*/[0-9][0-9]/*' -name '[0-9][0-9][0-9][0-9][0-9].mp3' |
        while read -r recording; do
            grep -qxF "${recording: -12}" "$kept" || rm -f "$recording"
        done
    find "$folder" -mindepth 1 -maxdepth 1 -type d -name '[0-9][0-9]' -empty -delete
done

sox -R -n -r "$RATE" -c 1 -b 16 "$work/silence.wav" trim 0 0.2
encode "$work/silence.wav" "$sample/silence.mp3"
sox -R -n -r "$RATE" -c 1 -b 16 "$work/beep.wav" synth 0.2 sine 880 fade h 0.02 0.2 0.08 vol 0.25
encode "$work/beep.wav" "$sample/beep.mp3"
echo "silence.mp3 and beep.mp3 made; $(du -sh "$sample" | cut -f1) in $sample"
