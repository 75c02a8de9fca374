# What ./play, ./test and packaging/ share: packages, builds and display. Sourced, never run.

. tools/sdl.sh

game_packages=(libsdl1.2-dev libsdl-image1.2-dev libsdl-mixer1.2-dev libgl1-mesa-dev libglu1-mesa-dev
    freeglut3-dev libxerces-c-dev g++ cmake ninja-build)
display_packages=(xvfb xauth)
test_packages=(libgtest-dev libgmock-dev libxml2-utils libpng-dev xdotool "${display_packages[@]}")

# Installs what is missing of the named Debian packages; asks nothing where all is there. A package that
# provides another counts as that one: the SDL 1.2 layer over SDL 2 stands in for SDL 1.2.
install_missing() {
    local present package missing=() root=()
    present=$(dpkg-query -W -f='${db:Status-Status} ${Package}, ${Provides},\n' | grep '^installed ')
    for package in "$@"; do
        [[ $present == *" $package"[,\ ]* ]] || missing+=("$package")
    done
    [[ ${#missing[@]} -gt 0 ]] || return 0
    echo "Installing: ${missing[*]}"
    [[ $(id -u) -eq 0 ]] || root=(sudo)
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Configures and builds one preset; more arguments go on to the build.
build() {
    [[ $1 != clang ]] || install_missing clang
    cmake --preset "$1" >/dev/null
    cmake --build --preset "$@"
}

# What the presets with sanitizers are told: what to pass over that libraries do among themselves. Looking into
# the libraries' thread-local data, the leak check can fall over a thread that is ending.
prepare_sanitizers() {
    export ASAN_OPTIONS=intercept_tls_get_addr=0
    export LSAN_OPTIONS="suppressions='$PWD/tests/support/lsan.supp':print_suppressions=0"
    export TSAN_OPTIONS="suppressions='$PWD/tests/support/tsan.supp':print_suppressions=0"
}

# The window is in the corner, where SDL 1.2 puts it; the layer over SDL 2 centres it.
on_virtual_display() {
    SDL_VIDEO_WINDOW_POS=0,0 xvfb-run -a -s '-screen 0 1024x768x24 -noreset' "$@"
}

# Runs a command on the user's display, or on a virtual one where there is none.
on_display() {
    if [[ -n ${DISPLAY:-} ]]; then "$@"; return; fi
    echo "No display found: starting a virtual one."
    install_missing "${display_packages[@]}"
    on_virtual_display "$@"
}
