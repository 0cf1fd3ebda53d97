# built_sources BUILD_FOLDER: our .cpp files that the folder's compile commands name, each once, ended by a zero byte.
# What is in the tree and built by nobody (an example with a project of its own) is left out; so is what moc wrote.
built_sources() {
    git ls-files -- '*.cpp' | while read -r file; do
        if grep -q "\"file\": \"$PWD/$file\"" "$1/compile_commands.json"; then
            printf '%s\0' "$file"
        fi
    done
}
