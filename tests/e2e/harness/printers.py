"""A print system of one's own: a CUPS server on a socket in a folder, with a queue whose printer writes files."""

import os
import subprocess
import tempfile
from pathlib import Path

from .conditions import wait_until

QUEUE = "Sheets"

FILES = """ServerRoot {folder}/etc
StateDir {folder}/run
CacheDir {folder}/cache
RequestRoot {folder}/spool
TempDir {folder}/spool/tmp
ServerBin {folder}/bin
AccessLog {folder}/log/access
ErrorLog {folder}/log/error
PageLog {folder}/log/page
"""

SERVER = """Listen {folder}/run/socket
Browsing No
DefaultAuthType None
WebInterface No
<Location />
  Allow all
</Location>
<Policy default>
  JobPrivateAccess all
  JobPrivateValues none
  <Limit All>
    Allow all
  </Limit>
</Policy>
"""

# Arguments: job, user, title, copies, options and perhaps a file; none when it is asked for its devices.
PRINTER = """#!/bin/sh
[ $# -ge 5 ] || { echo 'direct sheets "Unknown" "Sheets"'; exit 0; }
cat "${6:--}" > "${DEVICE_URI#sheets:}/$1.part"
printf '%s\\n' "$3" "$4" "$5" > "${DEVICE_URI#sheets:}/$1.txt"
mv "${DEVICE_URI#sheets:}/$1.part" "${DEVICE_URI#sheets:}/$1.pdf"
"""

# It takes PDF as it is.
DESCRIPTION = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "SHEETS.PPD"
*Manufacturer: "None"
*Product: "(Sheets)"
*ModelName: "Sheets"
*ShortNickName: "Sheets"
*NickName: "Sheets"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A4
*PageRegion A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "0 0 595 842"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
"""


class PrintSystem:
    """Runs until `end`. Programs that are started meanwhile print with it, and with no other."""

    def __init__(self):
        self._own_folder = tempfile.TemporaryDirectory(prefix="snipdeck-cups.")
        self._folder = Path(self._own_folder.name)
        self._printed = self._folder / "printed"
        self._lay_out()
        self._server = subprocess.Popen(
            ["/usr/sbin/cupsd", "-f", "-c", self._folder / "etc/server", "-s", self._folder / "etc/files"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        socket = self._folder / "run/socket"
        self._before = os.environ.get("CUPS_SERVER")
        os.environ["CUPS_SERVER"] = str(socket)
        wait_until("the print server", lambda: self._admin("lpstat", "-r") == 0)

    def _lay_out(self):
        for name in ("etc", "run", "cache", "spool/tmp", "log", "bin/backend", "printed"):
            (self._folder / name).mkdir(parents=True)
        # Printers run as a user of their own where the server runs as root.
        self._folder.chmod(0o755)
        self._printed.chmod(0o777)
        for name in ("daemon", "filter", "notifier"):
            (self._folder / "bin" / name).symlink_to(Path("/usr/lib/cups", name))
        (self._folder / "etc/files").write_text(FILES.format(folder=self._folder))
        (self._folder / "etc/server").write_text(SERVER.format(folder=self._folder))
        (self._folder / "sheets.ppd").write_text(DESCRIPTION)
        printer = self._folder / "bin/backend/sheets"
        printer.write_text(PRINTER)
        printer.chmod(0o755)

    def _admin(self, *command):
        return subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=10).returncode

    def add_queue(self):
        """The queue, which is then the default one."""
        self._set_up("-p", QUEUE, "-E", "-v", f"sheets:{self._printed}", "-P", self._folder / "sheets.ppd")
        self._set_up("-d", QUEUE)

    def _set_up(self, *options):
        # A server that has just begun, or taken a queue in, may refuse for a moment.
        wait_until("the queue", lambda: self._admin("lpadmin", *options) == 0)

    def refuse_jobs(self):
        wait_until("the queue that refuses", lambda: self._admin("cupsreject", QUEUE) == 0)

    def jobs(self):
        """The PDF files that came out of the printer, in the order of the jobs."""
        return sorted(self._printed.glob("*.pdf"), key=lambda path: int(path.stem))

    def ticket(self, job):
        """Title, number of copies and options of a job that came out."""
        return job.with_suffix(".txt").read_text().splitlines()

    def stop(self):
        """As if the machine that it runs on were gone."""
        self._server.terminate()
        self._server.wait(10)

    def end(self):
        self.stop()
        if self._before is None:
            del os.environ["CUPS_SERVER"]
        else:
            os.environ["CUPS_SERVER"] = self._before
        self._own_folder.cleanup()


def pages_of(pdf):
    """The words on each sheet."""
    text = subprocess.run(["pdftotext", pdf, "-"], capture_output=True, text=True, check=True, timeout=10).stdout
    return [" ".join(page.split()) for page in text.split("\f")[:-1]]
