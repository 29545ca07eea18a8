# SPDX-License-Identifier: MIT
# Makes the gallery and opens its page in a browser, as wide as a desk's screen and as narrow as a telephone's: all
# pictures must be shown, nothing may be logged, and every exported function must have its place.
#
#   page_test.sh KIV_GALLERY EXPORTED_SYMBOLS
set -eu

if ! command -v chromium >/dev/null; then
    echo "skipped: chromium is not installed (scripts/setup installs it)"
    exit 77
fi

folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
page="$folder/gallery"
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# probe WIDTH: a page that holds the gallery's page in a frame of that width, since a browser's window cannot be as
# narrow as a telephone. Once all is loaded it looks into the frame and reports its findings as lines of text.
probe() {
    cat <<END
<iframe src="index.html" style="width:${1}px;height:900px"></iframe>
<script>addEventListener("load", () => {
    const {contentWindow: page, contentDocument: dom} = document.querySelector("iframe");
    const findings = ["loaded, " + page.innerWidth + " wide, " + dom.images.length + " pictures"];
    for (const image of dom.images) {
        const name = image.getAttribute("src");
        if (!image.complete || image.naturalWidth === 0 || image.naturalHeight === 0) findings.push("broken " + name);
        if (image.width < 120 || image.height < 40) findings.push("tiny " + name);
        if (!image.alt) findings.push("undescribed " + name);
    }
    for (const link of dom.querySelectorAll('a[href^="#"]'))
        if (!dom.getElementById(link.hash.slice(1))) findings.push("dangling " + link.hash);
    if (dom.documentElement.scrollWidth > page.innerWidth) findings.push("wider than its frame");
    document.body.append(...findings.map((line) => "\nprobe: " + line + "\n"));
})</script>
END
}

# inspect WIDTH: the findings of the probe, and what the browser logs.
inspect() {
    probe "$1" >"$page/probe.html"
    timeout 120 chromium --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync --user-data-dir="$folder/profile" \
        --enable-logging=stderr --allow-file-access-from-files --dump-dom "file://$page/probe.html" \
        >"$folder/dom" 2>"$folder/log" || fail "the browser ends with status $?: $(tail -n 3 "$folder/log")"
    sed -n 's/^probe: //p' "$folder/dom"
    grep CONSOLE "$folder/log" || true
}

"$1" --output "$page" >/dev/null || fail "the gallery is not made"
grep -q 'https\?://' "$page/index.html" && fail "the page refers to other places"

for function in $(sed -n 's/^T KIVMV::\([A-Za-z]*\)(.*/\1/p' "$2"); do
    grep -q "<article id=\"$function\">" "$page/index.html" || fail "$function is not shown"
done

pictures=$(grep -o '<img ' "$page/index.html" | wc -l)
for width in 320 1600; do
    found=$(inspect $width)
    [ "$found" = "loaded, $width wide, $pictures pictures" ] || fail "in a frame $width wide: $found"
done

# The probe itself must notice a picture that is missing.
rm "$page/pictures/radixsort-1.svg"
inspect 1600 | grep -q '^broken pictures/radixsort-1.svg$' || fail "a missing picture is not noticed"

[ "$failures" = 0 ]
