# shellcheck shell=bash
# Where this machine gets its Debian packages from. Sourced, not run.

# debian_sources: prints apt's source lines for the Debian release this machine uses, whatever form its own lists
# have. Archives of other vendors are left out, since they rarely carry other architectures; so are security
# and updates, which mirrors carry late for some architectures and which nothing that is built here needs.
debian_sources() {
    local lines
    # shellcheck disable=SC2016 # apt fills these in, not the shell
    lines=$(apt-get indextargets 'Created-By: Packages' 'Origin: Debian' \
        --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' | awk '$3 !~ /[-\/]/' | sort -u)
    if [ -z "$lines" ]; then
        echo "no package lists of a Debian archive on this machine; apt-get update fetches them" >&2
        return 1
    fi
    echo "$lines"
}
