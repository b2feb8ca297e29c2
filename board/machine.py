"""The emulated machine: one QEMU process and its control connection."""

import json
import socket
import subprocess

SLOW_PER_S = 30   # reads and writes that a slow stick does in a second
SLOW_AT_ONCE = 4  # of them without a pause: the emulator lets a tenth of a second's pass, and one

HARDWARE = (
    "-M", "virt,highmem=off", "-cpu", "cortex-a15", "-m", "256",
    "-display", "none", "-monitor", "none", "-nic", "none", "-no-reboot",
    # No SuperSpeed ports: a stick on one is not on bus 1, where the tool looks for it.
    "-device", "qemu-xhci,id=usb,p2=15,p3=0",
    "-device", "virtio-serial-pci",
    "-object", f"throttle-group,id=slow,x-iops-total={SLOW_PER_S}",
    # A network card whose cable ends in a hub with no other port.
    "-netdev", "hubport,id=net,hubid=0", "-device", "virtio-net-pci,netdev=net,romfile=",
)
KERNEL_OPTIONS = "console=ttyAMA0 quiet panic=-1"


class MachineGone(Exception):
    """The machine ended, or does not answer any more."""


class Refused(Exception):
    """The emulator refused a command: a mistake in the test or in its stick."""


class Control:
    """QEMU's machine protocol: commands, and the events that they bring about."""

    def __init__(self, connection):
        self._stream = connection.makefile("rw")
        self._events = []
        self._receive()  # the greeting
        self.execute("qmp_capabilities")

    def _receive(self):
        try:
            line = self._stream.readline()
        except OSError as error:
            raise MachineGone("the emulator does not answer") from error
        if not line:
            raise MachineGone("the emulator closed its control connection")
        return json.loads(line)

    def execute(self, command, **arguments):
        """Runs a command and returns its result."""
        try:
            json.dump({"execute": command, "arguments": arguments}, self._stream)
            self._stream.flush()
        except OSError as error:
            raise MachineGone("the emulator takes no command") from error
        while True:
            answer = self._receive()
            if "event" in answer:
                self._events.append(answer)
            elif "error" in answer:
                raise Refused(f"{command}: {answer['error']['desc']}")
            else:
                return answer["return"]

    def wait_until_deleted(self, device):
        """Waits for the event that tells that a device is gone."""
        while True:
            for event in self._events:
                if event["event"] == "DEVICE_DELETED" and event["data"].get("device") == device:
                    self._events.remove(event)
                    return
            answer = self._receive()
            if "event" in answer:
                self._events.append(answer)


class Machine:
    """A running machine. `port` is the connected socket of the agent in the guest."""

    def __init__(self, kernel, initrd, serial, messages, bound_s):
        control, control_end = socket.socketpair()
        self.port, port_end = socket.socketpair()
        control.settimeout(bound_s)
        ends = (control_end.fileno(), port_end.fileno())
        self._process = subprocess.Popen(
            # The emulator ends with this process, whatever ends that.
            ["setpriv", "--pdeathsig", "KILL", "qemu-system-arm", *HARDWARE,
             "-kernel", kernel, "-initrd", initrd, "-append", KERNEL_OPTIONS, "-serial", serial,
             "-chardev", f"socket,id=control,fd={ends[0]}",
             "-mon", "chardev=control,mode=control",
             "-chardev", f"socket,id=port,fd={ends[1]}",
             "-device", "virtserialport,chardev=port"],
            pass_fds=ends, stderr=messages)
        control_end.close()
        port_end.close()
        try:
            self.control = Control(control)
        except BaseException:
            self.end()
            raise

    def wait(self):
        """Waits until the machine is switched off."""
        self._process.wait()

    def end(self):
        """Switches the machine off, if it still runs."""
        self._process.kill()
        self._process.wait()
        self.port.close()
