#!/usr/bin/env bash
# package.sh: installs what is missing, builds the release and makes the Debian package build/release/qm-snipdeck_*.deb.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/packages.sh build run package
cmake --log-level=NOTICE --preset release -DSNIPDECK_TESTS=OFF
cmake --build --preset release
desktop-file-validate packaging/org.qm_snipdeck.QM_Snipdeck.desktop
appstreamcli validate --no-net packaging/org.qm_snipdeck.QM_Snipdeck.metainfo.xml
(cd build/release && cpack --config CPackConfig.cmake)
ls -l build/release/*.deb
