# What SDL is told before the game starts, from the checkout or installed. Sourced, never run.

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
