"""A file whose bytes are long in coming, as from a network, on a file system made here (FUSE)."""
import multiprocessing
import os
import signal
import stat
import tempfile

FORK = multiprocessing.get_context("fork")
TEXT = b"[" + b",".join(b'{"name":"n%d"}' % number for number in range(20_000)) + b"]\n"


class SlowFile:
    """`path` is None where no file system can be made."""

    def __enter__(self):
        # Without `may_come` no bytes come; `asked` is set when a reader waits for them.
        self.may_come, self.asked, self.ready = (FORK.Event() for _ in range(3))
        self.may_come.set()
        self.folder = tempfile.mkdtemp(prefix="brindlewick-slow-")
        self.server = FORK.Process(target=self.serve)
        self.server.start()
        while self.server.is_alive() and not self.ready.wait(0.05):
            pass
        self.path = os.path.join(self.folder, "slow.json") if self.ready.is_set() else None
        return self

    def __exit__(self, kind, error, trace):
        self.may_come.set()
        self.server.terminate()
        self.server.join()
        os.rmdir(self.folder)

    def serve(self):
        import pyfuse3
        import trio

        class OneFile(pyfuse3.Operations):
            async def getattr(this, inode, ctx=None):
                entry = pyfuse3.EntryAttributes()
                entry.st_ino, entry.st_size = inode, len(TEXT)
                entry.st_mode = stat.S_IFDIR | 0o755 if inode == pyfuse3.ROOT_INODE else stat.S_IFREG | 0o644
                return entry

            async def lookup(this, parent, name, ctx=None):  # whatever its name, it is the file
                return await this.getattr(pyfuse3.ROOT_INODE + 1)

            async def statfs(this, ctx):
                return pyfuse3.StatvfsData()  # the kind of file system comes with it

            async def open(this, inode, flags, ctx):
                return pyfuse3.FileInfo(fh=inode, keep_cache=False)

            async def read(this, handle, offset, size):
                self.asked.set()
                while not self.may_come.is_set():
                    await trio.sleep(0.02)
                return TEXT[offset:offset + size]

        pyfuse3.init(OneFile(), self.folder, {"fsname=slow"})
        signal.signal(signal.SIGTERM, lambda *_: (pyfuse3.close(), os._exit(0)))  # the first unmounts
        self.ready.set()
        trio.run(pyfuse3.main)
