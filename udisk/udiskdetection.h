/*
 * Finding, mounting and unmounting a USB disk.
 *
 * The disk is looked for in the kernel's proc files at the moment of the call and mounted as a FAT
 * file system on /mnt/removable, read-write, without execution of programs. Nothing waits for a
 * disk: one that the kernel has not registered yet is not found. All outcomes but a lack of memory
 * are logged under the source name udiskdetection. No function takes a pointer. Not for two threads
 * at once.
 */
#ifndef UDISK_UDISKDETECTION_H
#define UDISK_UDISKDETECTION_H

/* The mount point. */
#define UDISK_MOUNT_POINT "/mnt/removable"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Unmounts what is mounted on /mnt/removable, then mounts the first disk or partition there that
 * the kernel accepts as FAT, in the kernel's order: a whole disk before its partitions. Only names
 * that begin with sd or ub are tried, and only those with a size above 0.
 *
 * Returns 0 when a disk is mounted, 1 when a USB device is present, or cannot be ruled out, but
 * nothing could be mounted, 2 when there is no USB storage device.
 *
 * Good to know:
 *  - The mount point is created when it is missing, before each attempt.
 *  - With result 2 nothing was unmounted either.
 *  - The folder /proc/scsi/usb-storage counts as a device, whatever it holds. Without it any device
 *    on USB bus 1 counts, a keyboard too, and a disk that is alone on another bus gives 2.
 *  - The candidates are tried wherever they are. Once a device counts, a disk on another bus, or
 *    one that is no USB disk at all, is mounted like any other.
 *  - A line of the kernel's table that does not scan ends the list of candidates, and so does a
 *    lack of memory. Those before it are tried.
 *  - The names of the candidates stay on the heap, a few bytes for each at every call.
 */
int DoMountUdisk(void);

/* Unmounts /mnt/removable. That nothing was mounted there is logged as a failure and no more. */
void DoUmount(void);

#ifdef __cplusplus
}
#endif

#endif
