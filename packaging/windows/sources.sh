# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the scripts that build libraries for the Windows release from Debian's source packages.

cache=${TAVREL_QT_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tavrel}

# A short name of what goes into a build: the versions that are given, the compiler and the files.
recipe_of() { # VERSIONS FILE...
    local versions=$1 compiler
    shift
    compiler=$(dpkg-query -W -f '${Version}' g++-mingw-w64-x86-64-posix)
    { echo "$versions $compiler"; cat "$@"; } | sha256sum | head -c 12
}

# Two builds at once would be in each other's way: the later one waits and finds it done.
lock_cache() {
    mkdir -p "$cache"
    exec 9>"$cache/lock"
    flock 9
}

# Unpacks source packages in the current folder, from where the machine has its packages; its own list of sources stays
# as it is.
get_sources() { # PACKAGE=VERSION...
    mkdir -p lists/partial cache/archives/partial
    local signed=/usr/share/keyrings/debian-archive-keyring.gpg
    apt-get indextargets --format "deb-src [signed-by=$signed] \$(REPO_URI) \$(CODENAME) \$(COMPONENT)" \
        'Created-By: Packages' 'Origin: Debian' | sort -u >sources.list
    if [ ! -s sources.list ]; then
        echo "apt knows no packages. Run first: apt-get update"
        exit 1
    fi
    local apt=(apt-get -q -o "Dir::Etc::sourcelist=$PWD/sources.list" -o Dir::Etc::sourceparts=-
        -o "Dir::State::lists=$PWD/lists" -o "Dir::Cache=$PWD/cache" -o APT::Sandbox::User=)
    "${apt[@]}" update
    "${apt[@]}" source "$@"
}
