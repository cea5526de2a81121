#!/usr/bin/env bash
# The Debian package as a user meets it: built by CPack, unpacked into an
# empty root (the programs find their data as ../share/zarvek wherever that
# root lies), then used from an unrelated directory with a fresh HOME:
#  - zarvek-cli solves the installed example project;
#  - the batch route solves the installed example problem and leaves its
#    result in the user's folder, not where it was started;
#  - `--open FILE` is not the batch route;
#  - nothing is written into the installed data or the directory the user
#    stands in;
#  - the desktop entry validates, the MIME type of problem files takes *.zvk
#    in both cases, both manual pages render without a warning, and lintian
#    finds no error (its warnings are printed).
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
not_checked() { echo "NOT CHECKED: $* (see DEBS in the Makefile)"; }

work=$(mktemp -d /tmp/zvk-package-XXXXXX)
trap 'rm -rf "$work"' EXIT

# ---- the package -------------------------------------------------------------
# what the package holds is built by now (make test builds everything first)
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
for f in usr/bin/zarvek usr/bin/zarvek-cli \
         usr/share/zarvek/SECTION.DB usr/share/zarvek/Zarvek.INI \
         usr/share/zarvek/ZARVEK_UK.MSG usr/share/zarvek/ZARVEK_FR.MSG \
         usr/share/zarvek/EXAMPLE.DAT usr/share/zarvek/EXAMPLE.ZVK \
         usr/share/zarvek/help/UK/index.html usr/share/zarvek/help/FR/index.html \
         usr/share/applications/zarvek.desktop usr/share/mime/packages/zarvek.xml \
         usr/share/icons/hicolor/scalable/apps/zarvek.svg usr/share/icons/hicolor/48x48/apps/zarvek.png \
         usr/share/man/man1/zarvek.1.gz usr/share/man/man1/zarvek-cli.1.gz \
         usr/share/doc/zarvek/copyright; do
  [ -e "$root/$f" ] || fail "the package lacks /$f"
done
share="$root/usr/share/zarvek"
snapshot() { (cd "$share" && find . -type f -exec md5sum {} + | sort); }
share_before=$(snapshot)

# ---- the programs, from an unrelated directory with a fresh HOME ---------------
home="$work/home"
elsewhere="$work/elsewhere"
mkdir -p "$home" "$elsewhere"
run() {
  (cd "$elsewhere" && env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_DATA_HOME HOME="$home" \
     QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/runtime" timeout 120 "$@")
}
mkdir -p -m 700 "$work/runtime"

# The example beam: IPE 300 of 10 m on fork supports under a uniform moment,
# E = 21000 and G = 8076.9 kN/cm2. The closed form in daN.cm:
# Mcr = (pi/L) sqrt(E Iz G It) sqrt(1 + pi^2 E Iw / (L^2 G It)).
mcr_closed=$(awk 'BEGIN { pi = atan2(0, -1); E = 2.1e6; G = 807690; L = 1000;
  Iz = 603.78; It = 19.868; Iw = 126332;
  printf "%.6f", pi / L * sqrt(E * Iz * G * It) * sqrt(1 + pi * pi * E * Iw / (L * L * G * It)) }')
# within 0.5 %: the finite elements of 100 elements against the closed form
near() { awk -v a="$1" -v b="$2" 'BEGIN { d = (a - b) / b; exit !(d < 0.005 && d > -0.005) }'; }

out=$(run "$root/usr/bin/zarvek-cli" solve "$share/EXAMPLE.DAT"); rc=$?
mcr_knm=$(printf '%s\n' "$out" | awk '$1 == "Mcr" { print $2 }')
if [ $rc -eq 0 ] && [ -n "$mcr_knm" ] && near "$(awk -v m="$mcr_knm" 'BEGIN { print m * 1e4 }')" "$mcr_closed"; then
  pass "zarvek-cli solve EXAMPLE.DAT: Mcr = $mcr_knm kN.m (closed form $(awk -v m="$mcr_closed" 'BEGIN { printf "%.4f", m / 1e4 }'))"
else
  fail "zarvek-cli solve EXAMPLE.DAT (exit $rc): $out"
fi
out=$(run "$root/usr/bin/zarvek-cli" section "IPE 300"); rc=$?
[ $rc -eq 0 ] && printf '%s' "$out" | grep -q '603' || fail "zarvek-cli section \"IPE 300\" (exit $rc): the installed catalogue is not read: $out"

out=$(run "$root/usr/bin/zarvek" "$share/EXAMPLE.ZVK" 2>&1); rc=$?
user="$home/.local/share/zarvek"
if [ $rc -eq 0 ] && [ -f "$user/Zarvek.TMP" ]; then
  mapfile -t lines <"$user/Zarvek.TMP"
  mcr_batch=$(awk -v mu="${lines[0]}" -v mm="${lines[1]}" 'BEGIN { printf "%.6f", mu * mm }')
  if [ ${#lines[@]} -eq 4 ] && near "$mcr_batch" "$mcr_closed" && [[ "${lines[3]}" == *"(0)" ]]; then
    pass "batch route: $user/Zarvek.TMP, mucr x Mmax = $mcr_batch daN.cm (closed form $mcr_closed)"
  else
    fail "batch route result: ${lines[*]}"
  fi
else
  fail "batch route (exit $rc), no $user/Zarvek.TMP: $out"
fi
grep -q '^LANGUAGE=UK' "$user/Zarvek.INI" 2>/dev/null || fail "the user's folder did not get the default Zarvek.INI"

# --open names a problem to show in the window: never a batch run
rm -f "$user/Zarvek.TMP"
out=$(run "$root/usr/bin/zarvek" --open "$share/EXAMPLE.ZVK" 2>&1); rc=$?
[ $rc -eq 0 ] && [ ! -e "$user/Zarvek.TMP" ] || fail "zarvek --open ran the batch route (exit $rc): $out"

# XDG_DATA_HOME moves the user's folder
(cd "$elsewhere" && env -u DISPLAY -u WAYLAND_DISPLAY HOME="$home" XDG_DATA_HOME="$work/xdg" \
   QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$work/runtime" timeout 120 \
   "$root/usr/bin/zarvek" "$share/EXAMPLE.ZVK" >/dev/null 2>&1)
[ -f "$work/xdg/zarvek/Zarvek.TMP" ] || fail "with XDG_DATA_HOME the result is not in \$XDG_DATA_HOME/zarvek"

left=$(ls -A "$elsewhere")
[ -z "$left" ] || fail "files written where the programs were started: $left"
[ "$(snapshot)" = "$share_before" ] || fail "the installed data was changed"

# ---- desktop entry, MIME type, manual pages ------------------------------------
if command -v desktop-file-validate >/dev/null; then
  if msg=$(desktop-file-validate "$root/usr/share/applications/zarvek.desktop" 2>&1) && [ -z "$msg" ]; then
    pass "desktop-file-validate zarvek.desktop"
  else
    fail "desktop-file-validate: $msg"
  fi
else
  not_checked "the desktop entry: desktop-file-validate (desktop-file-utils) is missing"
fi
grep -q '^Exec=zarvek --open %f$' "$root/usr/share/applications/zarvek.desktop" ||
  fail "the desktop entry does not open files with zarvek --open"
if command -v update-mime-database >/dev/null; then
  update-mime-database "$root/usr/share/mime" >/dev/null 2>&1
  # a glob without the ":cs" flag matches every case: *.zvk, *.ZVK, *.Zvk
  if grep -qE '^[0-9]+:application/x-zarvek-problem:\*\.zvk$' "$root/usr/share/mime/globs2"; then
    pass "MIME type application/x-zarvek-problem for *.zvk in any case"
  else
    fail "the MIME database does not map *.zvk (any case) to application/x-zarvek-problem: $(grep zarvek "$root/usr/share/mime/globs2")"
  fi
else
  not_checked "the MIME type: update-mime-database (shared-mime-info) is missing"
fi

if command -v man >/dev/null; then
  for page in zarvek zarvek-cli; do
    warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$root/usr/share/man/man1/$page.1.gz" 2>&1 >"$work/$page.txt")
    if [ -n "$warnings" ] || ! grep -q 'EXIT STATUS' "$work/$page.txt"; then
      fail "man -l $page.1.gz: $warnings"
    else
      pass "man -l $page.1.gz renders without warnings"
    fi
  done
else
  not_checked "the manual pages: man (man-db) is missing"
fi

# ---- lintian -------------------------------------------------------------------
if command -v lintian >/dev/null; then
  lintian --tag-display-limit 0 "$deb" >"$work/lintian.txt" 2>&1
  grep -E '^[EW]: ' "$work/lintian.txt" | sed 's/^/lintian: /'
  if grep -q '^E: ' "$work/lintian.txt"; then
    fail "lintian reports errors"
  else
    pass "lintian: no error, $(grep -c '^W: ' "$work/lintian.txt") warnings"
  fi
else
  not_checked "the package's policy: lintian is missing"
fi

echo "package test: $failures fault(s)"
[ $failures -eq 0 ]
