# What ./play and ./test share: packages, builds, sound and display. Sourced, never run.

game_packages=(libsdl1.2-dev libsdl-image1.2-dev libsdl-mixer1.2-dev libgl1-mesa-dev libglu1-mesa-dev
    freeglut3-dev libxerces-c-dev g++ cmake ninja-build)
display_packages=(xvfb xauth)
test_packages=(libgtest-dev libgmock-dev xdotool "${display_packages[@]}")

# Installs what is missing of the named Debian packages; asks nothing where all is there.
install_missing() {
    local package missing=() root=()
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] ||
            missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    echo "Installing: ${missing[*]}"
    [[ $(id -u) -eq 0 ]] || root=(sudo)
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures and builds one preset.
build() {
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$1"
}

# SDL reads its settings from the environment: the X11 driver, since its text-mode fallback garbles
# a terminal; lock keys that are keys like any other, so that Num Lock grounds nobody; and silence
# where no sound device exists.
prepare_sdl() {
    export SDL_VIDEODRIVER=x11
    export SDL_DISABLE_LOCK_KEYS=1
    if [[ -z ${SDL_AUDIODRIVER:-} ]] && ! has_sound; then export SDL_AUDIODRIVER=dummy; fi
}

has_sound() {
    compgen -G '/dev/snd/pcm*p' >/dev/null || [[ -n ${PULSE_SERVER:-} ]] ||
        [[ -S ${XDG_RUNTIME_DIR:-/nowhere}/pulse/native ]]
}

# Runs a command on the user's display, or on a virtual one where there is none.
on_display() {
    if [[ -n ${DISPLAY:-} ]]; then "$@"; return; fi
    echo "No display found: starting a virtual one."
    install_missing "${display_packages[@]}"
    xvfb-run -a -s '-screen 0 1024x768x24 -noreset' "$@"
}
