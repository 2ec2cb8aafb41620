"""The table that the programs of this folder print, in the columns of Measure.h."""


def heading():
    print(f"{'figure / floor':58} {'figure':>10} {'floor':>10}    {'ratio':>7} {'budget':>7}", flush=True)


def row(figure, ours, floor, ratio, budget, unit):
    over = "  over" if ratio > budget else ""
    print(f"{figure:58} {ours:10.3f} {floor:10.3f} {unit:2} {ratio:7.2f} {budget:7.2f}{over}", flush=True)
