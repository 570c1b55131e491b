#!/usr/bin/env bash
# A C compiler takes the right use of the typed wrappers of ovant_idioms.h and refuses every wrong pointer.
#   refuses.sh SOURCE_FOLDER COMPILER
set -uo pipefail
source=$1 compiler=$2 failed=0

compile() { # compile LINK_MEMBER STATEMENT
    "$compiler" -std=c99 -Wall -Werror -fsyntax-only -I"$source/include" -x c - 2>&1 <<TEXT
#include "ovant_idioms.h"
struct job { AVL_Link link; int32_t prio; };
struct timer { AVL_Link link; int32_t due; };
OVANT_TYPED(jobs, struct job, $1, prio, ovant_compare_int32);
void use(AVL_Tree *tree, struct job *job, struct timer *timer);
void use(AVL_Tree *tree, struct job *job, struct timer *timer) { (void)tree, (void)job, (void)timer; $2; }
TEXT
}
refused() {
    local said
    said=$(compile "$@") || [[ $said != *incompatible*pointer* ]] || return
    failed=1
    echo "not refused for its pointer: $*"$'\n'"$said"
}

compile link 'jobs_insert(tree, job), jobs_next(tree, job), job = jobs_first(tree)' || failed=1
for wrong in 'jobs_insert(tree, timer)' 'jobs_insert(tree, &job->link)' 'jobs_remove(tree, timer)' \
    'jobs_next(tree, timer)' 'timer = jobs_first(tree)'; do
    refused link "$wrong"
done
refused prio 'job = jobs_first(tree)'
exit $failed
