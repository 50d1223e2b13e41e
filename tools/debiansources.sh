# shellcheck shell=bash
# The Debian package sources of this machine. Sourced, not run.

# debian_sources: prints apt's source lines for the Debian release of this machine. Omits archives of other vendors,
# because they rarely have other architectures. Omits security and updates, because some mirrors do not have them for
# all architectures, and they are not needed here.
debian_sources() {
    local lines
    # shellcheck disable=SC2016 # apt fills these in, not the shell
    lines=$(apt-get indextargets 'Created-By: Packages' 'Origin: Debian' \
        --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' | awk '$3 !~ /[-\/]/' | sort -u)
    if [ -z "$lines" ]; then
        echo "this machine has no package lists of a Debian archive; run apt-get update" >&2
        return 1
    fi
    echo "$lines"
}
