#!/usr/bin/env bash
# The Debian package as a user meets it: built by CPack, unpacked into an
# empty root (the programs find their data as ../share/zarvek wherever that
# root lies), then used from an unrelated directory with a fresh HOME:
# zarvek-cli solves the installed example project, the batch route solves the
# installed example problem into the user's folder, and nothing is written
# into the installed data or where the user stands. The desktop entry
# validates, the MIME type takes *.zvk in any case, both manual pages render
# without a warning, and lintian finds no error (its warnings are printed).
# Usage: test_package.sh BUILD_DIR. Exit 77 (skipped) without dpkg-deb.
set -u
build=${1:?usage: test_package.sh BUILD_DIR}
if ! command -v dpkg-deb >/dev/null; then
  echo "SKIPPED: dpkg-deb is not available, the Debian package can't be built nor unpacked"
  exit 77
fi

failures=0
fail() { echo "FAIL: $*"; failures=$((failures + 1)); }
pass() { echo "ok: $*"; }
has() { command -v "$1" >/dev/null || { echo "NOT CHECKED: $2: $1 is missing (see DEBS in the Makefile)"; false; }; }
work=$(mktemp -d /tmp/zvk-package-XXXXXX)
trap 'rm -rf "$work"' EXIT

# ---- the package (what it holds is built by now: make test builds everything first)
if ! (cd "$build" && cpack -G DEB) >"$work/cpack.log" 2>&1; then
  cat "$work/cpack.log"
  echo "FAIL: cpack could not build the package"
  exit 1
fi
deb=$(ls -t "$build"/zarvek_*.deb 2>/dev/null | head -n 1)
[ -n "$deb" ] || { echo "FAIL: no zarvek_*.deb in $build"; exit 1; }
echo "package: $deb"
dpkg-deb -f "$deb" Package Version Depends
root="$work/root"
mkdir -p "$root"
dpkg-deb -x "$deb" "$root" || { echo "FAIL: dpkg-deb -x"; exit 1; }
for f in bin/zarvek bin/zarvek-cli share/applications/zarvek.desktop share/mime/packages/zarvek.xml \
         share/zarvek/{SECTION.DB,Zarvek.INI,ZARVEK_UK.MSG,ZARVEK_FR.MSG,EXAMPLE.DAT,EXAMPLE.ZVK} \
         share/zarvek/help/{UK,FR}/index.html share/icons/hicolor/{scalable/apps/zarvek.svg,48x48/apps/zarvek.png} \
         share/man/man1/{zarvek,zarvek-cli}.1.gz share/doc/zarvek/copyright; do
  [ -e "$root/usr/$f" ] || fail "the package lacks /usr/$f"
done
share="$root/usr/share/zarvek"
snapshot() { (cd "$share" && find . -type f -exec md5sum {} + | sort); }
share_before=$(snapshot)

# ---- the programs, from an unrelated directory with a fresh HOME
home="$work/home" elsewhere="$work/elsewhere"
mkdir -p "$home" "$elsewhere" && mkdir -p -m 700 "$work/runtime"
run() {
  (cd "$elsewhere" && env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_DATA_HOME HOME="$home" \
     QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/runtime" timeout 120 "$@")
}
# The example beam: IPE 300 of 10 m on fork supports under a uniform moment,
# E = 21000 and G = 8076.9 kN/cm2. The closed form in daN.cm:
# Mcr = (pi/L) sqrt(E Iz G It) sqrt(1 + pi^2 E Iw / (L^2 G It)).
mcr_closed=$(awk 'BEGIN { pi = atan2(0, -1); E = 2.1e6; G = 807690; L = 1000;
  Iz = 603.78; It = 19.868; Iw = 126332;
  printf "%.6f", pi / L * sqrt(E * Iz * G * It) * sqrt(1 + pi * pi * E * Iw / (L * L * G * It)) }')
# within 0.5 %: the finite elements of 100 elements against the closed form
near() { awk -v a="$1" -v b="$2" 'BEGIN { d = (a - b) / b; exit !(d < 0.005 && d > -0.005) }'; }

out=$(run "$root/usr/bin/zarvek-cli" solve "$share/EXAMPLE.DAT"); rc=$?
mcr_knm=$(printf '%s\n' "$out" | awk '$1 == "Mcr" { print $2; exit }')
if [ $rc -eq 0 ] && [ -n "$mcr_knm" ] && near "$(awk -v m="$mcr_knm" 'BEGIN { print m * 1e4 }')" "$mcr_closed"; then
  pass "zarvek-cli solve EXAMPLE.DAT: Mcr = $mcr_knm kN.m (closed form $mcr_closed daN.cm)"
else
  fail "zarvek-cli solve EXAMPLE.DAT (exit $rc): $out"
fi
out=$(run "$root/usr/bin/zarvek-cli" section "IPE 300"); rc=$?
[ $rc -eq 0 ] && printf '%s' "$out" | grep -q '603' || fail "zarvek-cli section \"IPE 300\" (exit $rc): the installed catalogue is not read: $out"

out=$(run "$root/usr/bin/zarvek" "$share/EXAMPLE.ZVK" 2>&1); rc=$?
user="$home/.local/share/zarvek"
mapfile -t lines 2>/dev/null <"$user/Zarvek.TMP" || lines=()
mcr_batch=$(awk -v mu="${lines[0]:-0}" -v mm="${lines[1]:-0}" 'BEGIN { printf "%.6f", mu * mm }')
if [ $rc -eq 0 ] && [ ${#lines[@]} -eq 4 ] && near "$mcr_batch" "$mcr_closed" && [[ "${lines[3]}" == *"(0)" ]]; then
  pass "batch route: $user/Zarvek.TMP, mucr x Mmax = $mcr_batch daN.cm (closed form $mcr_closed)"
else
  fail "batch route (exit $rc), $user/Zarvek.TMP: ${lines[*]} $out"
fi
grep -q '^LANGUAGE=UK' "$user/Zarvek.INI" 2>/dev/null || fail "the user's folder did not get the default Zarvek.INI"
left=$(ls -A "$elsewhere")
[ -z "$left" ] || fail "files written where the programs were started: $left"
[ "$(snapshot)" = "$share_before" ] || fail "the installed data was changed"

# ---- desktop entry, MIME type, manual pages, lintian
desktop="$root/usr/share/applications/zarvek.desktop"
if has desktop-file-validate "the desktop entry"; then
  msg=$(desktop-file-validate "$desktop" 2>&1) && [ -z "$msg" ] && pass "desktop-file-validate zarvek.desktop" ||
    fail "desktop-file-validate: $msg"
fi
grep -q '^Exec=zarvek --open %f$' "$desktop" || fail "the desktop entry does not open files with zarvek --open"
if has update-mime-database "the MIME type"; then
  update-mime-database "$root/usr/share/mime" >/dev/null 2>&1
  # a glob without the ":cs" flag matches every case: *.zvk, *.ZVK, *.Zvk
  grep -qE '^[0-9]+:application/x-zarvek-problem:\*\.zvk$' "$root/usr/share/mime/globs2" &&
    pass "MIME type application/x-zarvek-problem for *.zvk in any case" ||
    fail "*.zvk (any case) is not application/x-zarvek-problem: $(grep zarvek "$root/usr/share/mime/globs2")"
fi
if has man "the manual pages"; then
  for page in zarvek zarvek-cli; do
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$root/usr/share/man/man1/$page.1.gz" 2>&1 >"$work/$page.txt")
    [ -z "$warnings" ] && grep -q 'EXIT STATUS' "$work/$page.txt" && pass "man -l $page.1.gz renders without warnings" ||
      fail "man -l $page.1.gz: $warnings"
  done
fi
if has lintian "the package's policy"; then
  lintian --tag-display-limit 0 "$deb" >"$work/lintian.txt" 2>&1
  grep -E '^[EW]: ' "$work/lintian.txt" | sed 's/^/lintian: /'
  grep -q '^E: ' "$work/lintian.txt" && fail "lintian reports errors" ||
    pass "lintian: no error, $(grep -c '^W: ' "$work/lintian.txt") warnings"
fi

echo "package test: $failures fault(s)"
[ $failures -eq 0 ]
