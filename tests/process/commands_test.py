"""The commands that the tool runs are missing: nothing is exported, and all else is done."""

import os
import shutil
import subprocess

import story
from faults import WHOLE_RUN, FaultTest, printed_text
from terminal import COMMANDS, read, write
from tests.support import tool
from tests.support.faults import fault

SCRIPT = "/mnt/test/script"


class Commands(FaultTest):
    @fault("Inputs", "no shell", output="the kernel's version is not in it, which a command writes")
    def test_no_shell(self):
        write(SCRIPT, "#!/no/such/interpreter\n")
        os.chmod(SCRIPT, 0o755)
        subprocess.run(["mount", "--bind", SCRIPT, "/bin/sh"], check=True)
        try:
            with self.assertRaises(FileNotFoundError):
                subprocess.run(["/bin/sh"], check=False)
            self.run_row(WHOLE_RUN, "-d", "EIWD")
        finally:
            subprocess.run(["umount", "/bin/sh"], check=True)
        self.assertEqual(tool.shortened(read(tool.OUTPUT_FILE)), printed_text(WHOLE_RUN))
        self.assertFalse(os.path.exists(tool.EXPORT_FOLDER))

    @fault("Inputs", "no `cp`")
    def test_no_copy_command(self):
        for name in "cat", "mkdir":
            os.symlink(shutil.which(name), f"{COMMANDS}/{name}")
        self.path = COMMANDS
        run = self.run_row(WHOLE_RUN, "-d", "EIWD")
        self.assertIn("cp: not found", run.stderr)
        self.assertEqual(os.listdir(tool.EXPORT_FOLDER), [])
