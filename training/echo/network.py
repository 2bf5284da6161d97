"""The network in PyTorch, and how wrong it is."""

import torch
from torch import nn

from features import BANDS, FEATURES

HIDDEN = 96
OUTPUTS = BANDS + 1


class Mask(nn.Module):
    """A dense layer, a recurrent one, a dense one: gains by band, and the logit of "somebody here talks"."""

    def __init__(self):
        super().__init__()
        self.entry = nn.Linear(FEATURES, HIDDEN)
        self.memory = nn.GRU(HIDDEN, HIDDEN, batch_first=True)
        self.exit = nn.Linear(HIDDEN, OUTPUTS)

    def forward(self, seen, state=None):
        between, state = self.memory(torch.tanh(self.entry(seen)), state)
        out = self.exit(between)
        return torch.sigmoid(out[..., :BANDS]), out[..., BANDS], state


def loss(gains, logit, target, voice):
    """Of gains: of their roots the square, twice where a voice would lose, and a little of their logarithms. Of the
    voice: cross entropy. Each by frame, so that the caller chooses which count."""
    difference = gains.clamp_min(1e-6).sqrt() - target.sqrt()
    weight = 1 + ((difference < 0) * voice[..., None])
    squared = (weight * difference ** 2).mean(-1)
    logarithmic = ((gains + 0.01).log10() - (target + 0.01).log10()).pow(2).mean(-1)
    entropy = nn.functional.binary_cross_entropy_with_logits(logit, voice, reduction="none")
    return 4 * squared + 0.3 * logarithmic + 0.25 * entropy
