"""Trains the mask on what `collect` has made."""

import time
from multiprocessing import Barrier, Process
from pathlib import Path

import numpy as np
import torch

from features import BANDS
from network import Mask, loss, strong

CHUNK = 300   # Frames that are learned from at a time...
SETTLING = 40 # ...of which the first do not count.
BATCH = 48
SHIFT = 2.5   # Levels are shifted together by up to so much (60 dB)...
COLOUR = 0.15 # ...and in each part of the spectrum by so much more (3.6 dB), as microphones differ.


def read(folder: Path, kind: str) -> tuple:
    """Features, gains and voices of all scenes of a kind, and where these are strong, scene by scene."""
    files = sorted(folder.glob(f"{kind}-*.npz"))
    parts = [np.load(file) for file in files]
    arrays = [torch.from_numpy(np.stack([part[name] for part in parts])) for name in ("features", "gains", "voice")]
    strength = torch.stack([strong(*(one.float() for one in scene)) for scene in zip(*arrays)])
    return *arrays, strength


def shifts(rng: np.random.Generator) -> torch.Tensor:
    """For each piece of a batch by how much its levels are shifted, by band."""
    whole = rng.uniform(-SHIFT / 2, SHIFT / 2, (BATCH, 1))
    points = rng.normal(0, COLOUR, (BATCH, 5))
    colours = np.stack([np.interp(np.linspace(0, 4, BANDS), np.arange(5), each) for each in points])
    return torch.from_numpy((whole + colours)[:, None, :].astype(np.float32))


def judged(mask: Mask, data: tuple) -> float:
    seen, *wanted = (each.float() for each in data)
    with torch.no_grad():
        gains, logit, _ = mask(seen)
        return float(loss(gains, logit, seen, *wanted)[:, SETTLING:].mean())


class Halves:
    """Two processes that do the same, each with its half of a batch: their gradients are brought together in memory that
    both see, always in the same order, so that both take the same step, and everybody gets the same sums again."""

    def __init__(self, weights: int):
        self.shared = torch.zeros(2, weights).share_memory_()
        self.barrier = Barrier(2)
        self.mine = 0

    def join(self, mask: Mask) -> None:
        gradients = [each.grad.view(-1) for each in mask.parameters()]
        torch.cat(gradients, out=self.shared[self.mine])
        self.barrier.wait()
        both = (self.shared[0] + self.shared[1]) / 2
        self.barrier.wait()
        for each, part in zip(gradients, both.split([len(one) for one in gradients])):
            each.copy_(part)


def learn(halves: Halves, mine: int, mask: Mask, data: tuple, held: tuple, epochs: int, seed: int, out: Path) -> None:
    halves.mine = mine
    rng = np.random.default_rng(seed)
    scenes, frames = data[0].shape[:2]
    optimiser = torch.optim.Adam(mask.parameters(), 2e-3)
    begun, best = time.monotonic(), float("inf")
    for epoch in range(1, epochs + 1):
        share = (epoch - 1) / epochs
        for group in optimiser.param_groups:
            group["lr"] = 2e-3 * 0.5 * (1 + np.cos(np.pi * share)) + 2e-5
        # Every scene once, cut at random places.
        pieces = [(scene, start) for scene in range(scenes)
                  for start in range(int(rng.integers(CHUNK)), frames - CHUNK, CHUNK - SETTLING)]
        rng.shuffle(pieces)
        total = 0.0
        for at in range(0, len(pieces) - BATCH + 1, BATCH):
            half = slice(mine * BATCH // 2, (mine + 1) * BATCH // 2)
            chosen = pieces[at:at + BATCH][half]
            cut = lambda whole: torch.stack([whole[scene, start:start + CHUNK] for scene, start in chosen]).float()
            x, *wanted = (cut(whole) for whole in data)
            x[..., :4 * BANDS] += shifts(rng)[half].repeat(1, 1, 4)
            gains, logit, _ = mask(x)
            wrong = loss(gains, logit, x, *wanted)[:, SETTLING:].mean()
            optimiser.zero_grad()
            wrong.backward()
            halves.join(mask)
            torch.nn.utils.clip_grad_norm_(mask.parameters(), 1.0)
            optimiser.step()
            total += float(wrong)
        if mine != 0:
            continue
        now = judged(mask, held)
        if now < best:
            best = now
            np.savez(out, **{name: value.numpy() for name, value in mask.state_dict().items()})
        print(f"epoch {epoch}, {(time.monotonic() - begun) / 60:.1f} min: {total / max(len(pieces) // BATCH, 1):.4f}, "
              f"held out {now:.4f}, best {best:.4f}", flush=True)


def fit(folder: Path, epochs: int, seed: int) -> dict:
    """The state of the network that was best on the scenes held out, as arrays."""
    torch.manual_seed(seed)
    torch.set_num_threads(1)
    data, held = read(folder, "training"), read(folder, "held")
    mask = Mask()
    weights = sum(each.numel() for each in mask.parameters())
    print(f"{len(data[0])} scenes, {weights} weights", flush=True)
    task = (Halves(weights), mask, data, held, epochs, seed, folder / "best.npz")
    other = Process(target=learn, args=(task[0], 1, *task[1:]), daemon=True)
    other.start()
    learn(task[0], 0, *task[1:])
    other.join()
    with np.load(folder / "best.npz") as kept:
        return dict(kept)
