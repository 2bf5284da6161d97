"""The file that the program reads, and the network in numpy as a reference for the program's own arithmetic."""

import hashlib
import struct
from pathlib import Path

import numpy as np

from features import BANDS, FEATURES

MAGIC = b"PALOMASK"
VERSION = 1
# In the order of the file; of each layer first the weights, a row for each output.
ORDER = ["entry.weight", "entry.bias", "memory.weight_ih_l0", "memory.bias_ih_l0", "memory.weight_hh_l0",
         "memory.bias_hh_l0", "exit.weight", "exit.bias"]


def write(path: Path, state: dict) -> None:
    """`state` is the network's, as arrays; numbers of 16 bits are enough."""
    body = b"".join(np.ascontiguousarray(state[name], "<f2").tobytes() for name in ORDER)
    units, outputs = len(state["entry.bias"]), len(state["exit.bias"])
    path.write_bytes(MAGIC + struct.pack("<4I", VERSION, FEATURES, units, outputs) + hashlib.sha256(body).digest() + body)


def read(path: Path) -> dict:
    data = path.read_bytes()
    version, features, units, outputs = struct.unpack_from("<4I", data, len(MAGIC))
    body = data[len(MAGIC) + 16 + 32:]
    if data[:8] != MAGIC or version != VERSION or hashlib.sha256(body).digest() != data[24:56]:
        raise SystemExit(f"{path} holds no weights")
    shapes = [(units, features), (units,), (3 * units, units), (3 * units,), (3 * units, units), (3 * units,),
              (outputs, units), (outputs,)]
    state, at = {}, 0
    for name, shape in zip(ORDER, shapes):
        count = int(np.prod(shape))
        state[name] = np.frombuffer(body, "<f2", count, at).reshape(shape).astype(np.float64)
        at += 2 * count
    return state


def forward(state: dict, seen: np.ndarray) -> np.ndarray:
    """Frames by 23: gains, and how likely it is that somebody here talks."""
    sigmoid = lambda x: 1 / (1 + np.exp(-x))
    units = len(state["entry.bias"])
    memory = np.zeros(units)
    out = np.empty((len(seen), BANDS + 1))
    for i, values in enumerate(seen):
        entered = np.tanh(state["entry.weight"] @ values + state["entry.bias"])
        given = state["memory.weight_ih_l0"] @ entered + state["memory.bias_ih_l0"]
        kept = state["memory.weight_hh_l0"] @ memory + state["memory.bias_hh_l0"]
        reset = sigmoid(given[:units] + kept[:units])
        update = sigmoid(given[units:2 * units] + kept[units:2 * units])
        candidate = np.tanh(given[2 * units:] + reset * kept[2 * units:])
        memory = (1 - update) * candidate + update * memory
        out[i] = sigmoid(state["exit.weight"] @ memory + state["exit.bias"])
    return out
