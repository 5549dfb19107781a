"""How much memory each process takes to read and hold its share of a scene, in MB:
  mpiexec -n N pvbatch --sym measure_memory.py SCENE"""
import sys

from paraview.simple import OpenDataFile, Sphere
from vtkmodules.vtkParallelCore import vtkMultiProcessController


def memory(key):
    with open("/proc/self/status", encoding="ascii") as status:
        lines = dict(line.split(":", 1) for line in status)
    return int(lines[key].split()[0]) / 1024


# What ParaView itself takes when it works.
Sphere().UpdatePipeline()
before = memory("VmRSS")
reader = OpenDataFile(sys.argv[1])
reader.UpdatePipeline()
rank = vtkMultiProcessController.GetGlobalController().GetLocalProcessId()
print(f"rank {rank}: holds {memory('VmRSS') - before:.0f}, at most {memory('VmHWM') - before:.0f}", flush=True)
